// SPDX-License-Identifier: MIT
#include "databases/sqlite/Celula.h"

#include <sqlite3.h>

#include <array>
#include <cstdio>
#include <limits>
#include <new>
#include <string>

#include "data/CodigosDeErros.h"
#include "data/LeitoresDeCampo.h"
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

std::int32_t LerLongo(const Celula& celula, const Origem& origem) {
    if (celula.classe == SQLITE_INTEGER &&
        celula.inteiro >= std::numeric_limits<std::int32_t>::min() &&
        celula.inteiro <= std::numeric_limits<std::int32_t>::max()) {
        return static_cast<std::int32_t>(celula.inteiro);
    }
    if (origem.coluna.empty()) {
        LancarEstouro(Mostrar(celula) + " não cabe em 32 bits");
    }
    LancarConversao(Mostrar(celula), TipoColuna::Longo, origem);
}

Moeda LerMoeda(const Celula& celula, const Origem& origem) {
    if (celula.classe == SQLITE_INTEGER) {
        return Moeda::DeDecimosMilesimos(celula.inteiro);
    }
    if (origem.coluna.empty()) {
        LancarEstouro("o valor calculado não cabe em Moeda");
    }
    LancarConversao(Mostrar(celula), TipoColuna::Moeda, origem);
}

Data LerData(const Celula& celula, const Origem& origem) {
    if (origem.coluna.empty() && celula.classe == SQLITE_FLOAT) {
        return Data::DeSerial(celula.real);
    }
    if (celula.classe == SQLITE_TEXT) {
        if (const auto data = Data::DeIso(celula.texto)) {
            return *data;
        }
    }
    LancarConversao(Mostrar(celula), TipoColuna::Data, origem);
}

bool LerBooleano(const Celula& celula, const Origem& origem) {
    if (celula.classe == SQLITE_INTEGER) {
        return celula.inteiro != 0;
    }
    if (celula.classe == SQLITE_FLOAT) {
        return celula.real != 0;
    }
    LancarConversao(Mostrar(celula), TipoColuna::Booleano, origem);
}

std::string LerTexto(const Celula& celula, const Origem& origem) {
    if (celula.classe != SQLITE_TEXT || !EhUtf8(celula.texto)) {
        LancarConversao(Mostrar(celula), TipoColuna::Texto, origem);
    }
    return std::string(celula.texto);
}

double LerDuplo(const Celula& celula, const Origem& origem) {
    if (celula.classe == SQLITE_INTEGER) {
        return static_cast<double>(celula.inteiro);
    }
    if (celula.classe == SQLITE_FLOAT) {
        return celula.real;
    }
    LancarConversao(Mostrar(celula), TipoColuna::Duplo, origem);
}

// A text that SQLite hands out; it has none when converting it took more memory than there is.
std::string_view Texto(const unsigned char* texto, int bytes) {
    if (texto == nullptr) {
        throw std::bad_alloc();
    }
    return {reinterpret_cast<const char*>(texto), static_cast<std::size_t>(bytes)};
}

// SQLite gives no pointer to none.
std::string_view Bytes(const void* bytes, int quantos) {
    return {static_cast<const char*>(bytes), static_cast<std::size_t>(quantos)};
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
    std::array<char, 64> texto{};
    const bool meiaNoite = c.hora == 0 && c.minuto == 0 && c.segundo == 0;
    const int n = std::snprintf(texto.data(), texto.size(),
                                meiaNoite ? "%04d-%02d-%02d" : "%04d-%02d-%02d %02d:%02d:%02d",
                                c.ano, c.mes, c.dia, c.hora, c.minuto, c.segundo);
    return {texto.data(), static_cast<std::size_t>(n)};
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
    switch (celula.classe) {
        case SQLITE_INTEGER:
            celula.inteiro = sqlite3_value_int64(valor);
            break;
        case SQLITE_FLOAT:
            celula.real = sqlite3_value_double(valor);
            break;
        case SQLITE_TEXT:
            celula.texto = Texto(sqlite3_value_text(valor), sqlite3_value_bytes(valor));
            break;
        case SQLITE_BLOB:
            celula.texto = Bytes(sqlite3_value_blob(valor), sqlite3_value_bytes(valor));
            break;
        default:
            break;
    }
    return celula;
}

Valor Converter(const Celula& celula, TipoColuna tipo, const Origem& origem) {
    if (celula.classe == SQLITE_NULL) {
        return Nulo{};
    }
    switch (tipo) {
        case TipoColuna::Texto:
            return LerTexto(celula, origem);
        case TipoColuna::Longo:
            return LerLongo(celula, origem);
        case TipoColuna::Moeda:
            return LerMoeda(celula, origem);
        case TipoColuna::Data:
            return LerData(celula, origem);
        case TipoColuna::Booleano:
            return LerBooleano(celula, origem);
        case TipoColuna::Duplo:
            return LerDuplo(celula, origem);
        case TipoColuna::Livre:
            break;
    }
    return Converter(celula, TipoGuardado(celula), origem);
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
