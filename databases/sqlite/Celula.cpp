// SPDX-License-Identifier: MIT
#include "databases/sqlite/Celula.h"

#include <sqlite3.h>

#include <array>
#include <new>
#include <string>

#include "data/CodigosDeErros.h"
#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"
#include "data/Textos.h"
#include "data/Utf8.h"
#include "databases/sqlite/Alfabeto.h"

namespace tarvo::sqlite {

namespace {

constexpr std::array<const char*, 7> NomesDosTipos{
    "um valor",    "um texto", "um número inteiro de 32 bits", "Moeda", "uma data",
    "um Booleano", "um número"};

[[noreturn]] void LancarConversao(std::string_view valor, TipoColuna tipo, const Origem& origem) {
    const std::string destino = NomesDosTipos.at(static_cast<std::size_t>(tipo));
    if (origem.coluna.empty()) {
        throw Erro(NumeroErro::ConversaoDeDado, "Erro de conversão: o valor \"" +
                                                    std::string(valor) + "\", calculado, não é " +
                                                    destino + ".");
    }
    throw Erro(NumeroErro::ConversaoDeDado, "Erro de conversão: o valor \"" + std::string(valor) +
                                                "\" da coluna \"" + std::string(origem.coluna) +
                                                "\" da tabela \"" + std::string(origem.tabela) +
                                                "\" não é " + destino + ".");
}

std::string Mostrar(const Celula& celula) {
    switch (celula.classe) {
        case SQLITE_INTEGER:
            return std::to_string(celula.inteiro);
        case SQLITE_FLOAT:
            return TextoCampo(celula.real);
        case SQLITE_TEXT:
            return EhUtf8(celula.texto) ? std::string(celula.texto) : "texto que não é UTF-8";
        default:
            // What a source held and its column cannot: see Preenchimento.
            return EhUtf8(celula.texto) ? std::string(celula.texto) : "dados binários";
    }
}

// The stored value, which is not Null, as that type; Null when it does not fit.
Valor Ler(const Celula& celula, TipoColuna tipo, bool calculado) {
    const bool inteiro = celula.classe == SQLITE_INTEGER;
    const bool real = celula.classe == SQLITE_FLOAT;
    const bool texto = celula.classe == SQLITE_TEXT;
    switch (tipo) {
        case TipoColuna::Texto:
            return texto && EhUtf8(celula.texto) ? Valor(std::string(celula.texto)) : Nulo{};
        case TipoColuna::Longo: {
            const auto longo = static_cast<std::int32_t>(celula.inteiro);
            return inteiro && longo == celula.inteiro ? Valor(longo) : Nulo{};
        }
        case TipoColuna::Moeda:
            return inteiro ? Valor(Moeda::DeDecimosMilesimos(celula.inteiro)) : Nulo{};
        case TipoColuna::Data: {
            if (calculado && real) {
                return Data::DeSerial(celula.real);
            }
            const auto data = texto ? Data::DeIso(celula.texto) : std::nullopt;
            return data ? Valor(*data) : Nulo{};
        }
        case TipoColuna::Booleano:
            return inteiro || real ? Valor(celula.inteiro != 0 || celula.real != 0) : Nulo{};
        default:
            return inteiro ? Valor(static_cast<double>(celula.inteiro))
                   : real  ? Valor(celula.real)
                           : Nulo{};
    }
}

TipoColuna TipoGuardado(const Celula& celula) {
    switch (celula.classe) {
        case SQLITE_INTEGER:
            return TipoColuna::Longo;
        case SQLITE_FLOAT:
            return TipoColuna::Duplo;
        default:
            return TipoColuna::Texto;
    }
}

std::string TextoIso(Data data) {
    const DataCivil c = data.Civil();
    const bool meiaNoite = c.hora == 0 && c.minuto == 0 && c.segundo == 0;
    return ComZeros(c.ano, 4) + "-" + ComZeros(c.mes, 2) + "-" + ComZeros(c.dia, 2) +
           (meiaNoite ? "" : " " + FormatarHora(data));
}

}  // namespace

TipoColuna TipoDeclarado(std::string_view declaracao) {
    const std::string tipo = SemCaixa(declaracao.substr(0, declaracao.find('(')));
    if (tipo == "text" || tipo == "varchar" || tipo == "char") {
        return TipoColuna::Texto;
    }
    if (tipo == "integer" || tipo == "int" || tipo == "long") {
        return TipoColuna::Longo;
    }
    if (tipo == "currency") {
        return TipoColuna::Moeda;
    }
    if (tipo == "datetime" || tipo == "date") {
        return TipoColuna::Data;
    }
    return tipo == "boolean" ? TipoColuna::Booleano : TipoColuna::Livre;
}

// What SQLite asks of its user, a lock on the value, is there: a connection has one thread at a
// time.
Celula LerCelula(sqlite3_stmt* instrucao, int coluna) {
    return LerCelula(sqlite3_column_value(instrucao, coluna));
}

Celula LerCelula(sqlite3_value* valor) {
    Celula celula{sqlite3_value_type(valor), 0, 0, {}};
    if (celula.classe == SQLITE_INTEGER) {
        celula.inteiro = sqlite3_value_int64(valor);
    } else if (celula.classe == SQLITE_FLOAT) {
        celula.real = sqlite3_value_double(valor);
    } else if (celula.classe == SQLITE_TEXT || celula.classe == SQLITE_BLOB) {
        // A text has none when converting it took more memory than there is, no bytes have none.
        const bool texto = celula.classe == SQLITE_TEXT;
        const auto* const bytes =
            static_cast<const char*>(texto ? static_cast<const void*>(sqlite3_value_text(valor))
                                           : sqlite3_value_blob(valor));
        if (texto && bytes == nullptr) {
            throw std::bad_alloc();
        }
        celula.texto = {bytes, static_cast<std::size_t>(sqlite3_value_bytes(valor))};
    }
    return celula;
}

Valor Converter(const Celula& celula, TipoColuna tipo, const Origem& origem) {
    if (celula.classe == SQLITE_NULL) {
        return Nulo{};
    }
    const bool calculado = origem.coluna.empty();
    const TipoColuna este = tipo == TipoColuna::Livre ? TipoGuardado(celula) : tipo;
    Valor valor = Ler(celula, este, calculado);
    if (!EhNulo(valor)) {
        return valor;
    }
    if (calculado && (este == TipoColuna::Longo || este == TipoColuna::Moeda)) {
        LancarEstouro(Mostrar(celula) + " não cabe em " +
                      NomesDosTipos.at(static_cast<std::size_t>(este)));
    }
    LancarConversao(Mostrar(celula), este, origem);
}

Valor ConverterParaColuna(const Valor& valor, TipoColuna tipo, const Origem& origem) {
    if (EhNulo(valor)) {
        return valor;
    }
    try {
        switch (tipo) {
            case TipoColuna::Texto:
                return TextoCampo(valor);
            case TipoColuna::Longo:
                return LongCampo(valor);
            case TipoColuna::Moeda:
                return MoedaCampo(valor);
            case TipoColuna::Data:
                return DataCampo(valor);
            case TipoColuna::Booleano:
                return BooleanoCampo(valor);
            default:
                return valor;
        }
    } catch (const Erro&) {
        LancarConversao(TextoCampo(valor), tipo, origem);
    }
}

int Vincular(sqlite3_stmt* instrucao, int parametro, const Valor& valor) {
    const auto vincularTexto = [&](const std::string& texto) {
        return sqlite3_bind_text64(instrucao, parametro, texto.data(), texto.size(),
                                   SQLITE_TRANSIENT, SQLITE_UTF8);
    };
    if (const auto* longo = std::get_if<std::int32_t>(&valor)) {
        return sqlite3_bind_int(instrucao, parametro, *longo);
    }
    if (const auto* duplo = std::get_if<double>(&valor)) {
        return sqlite3_bind_double(instrucao, parametro, *duplo);
    }
    if (const auto* moeda = std::get_if<Moeda>(&valor)) {
        return sqlite3_bind_int64(instrucao, parametro, moeda->DecimosMilesimos());
    }
    if (const auto* data = std::get_if<Data>(&valor)) {
        return vincularTexto(TextoIso(*data));
    }
    if (const auto* booleano = std::get_if<bool>(&valor)) {
        return sqlite3_bind_int(instrucao, parametro, *booleano ? -1 : 0);
    }
    if (const auto* texto = std::get_if<std::string>(&valor)) {
        return vincularTexto(*texto);
    }
    return sqlite3_bind_null(instrucao, parametro);
}

}  // namespace tarvo::sqlite
