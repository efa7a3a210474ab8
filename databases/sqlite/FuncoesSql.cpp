#include "databases/sqlite/FuncoesSql.h"

#include <sqlite3.h>

#include <limits>
#include <memory>

#include "data/CodigosDeErros.h"
#include "data/LeitoresDeCampo.h"
#include "databases/sqlite/Alfabeto.h"
#include "databases/sqlite/Celula.h"
#include "databases/sqlite/Conexao.h"
#include "databases/sqlite/Padrao.h"

namespace tarvo::sqlite {

namespace {

// Nothing may be thrown through SQLite: an error becomes the function's result.
template <class Corpo>
void Proteger(sqlite3_context* contexto, Corpo corpo) {
    try {
        corpo();
    } catch (const Erro& erro) {
        const std::string texto = CodificarErro(static_cast<int>(erro.Numero()), erro.Descricao());
        sqlite3_result_error(contexto, texto.data(), static_cast<int>(texto.size()));
    } catch (const std::exception&) {
        sqlite3_result_error_nomem(contexto);
    }
}

TipoColuna LerTipo(sqlite3_value** argumentos) {
    return static_cast<TipoColuna>(sqlite3_value_int(argumentos[1]));
}

Valor LerArgumento(sqlite3_value** argumentos) {
    return Converter(LerCelula(argumentos[0]), LerTipo(argumentos),
                     {LerCelula(argumentos[2]).texto, LerCelula(argumentos[3]).texto});
}

void DevolverTexto(sqlite3_context* contexto, const std::string& texto) {
    sqlite3_result_text64(contexto, texto.data(), texto.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void Como(sqlite3_context* contexto, int /*n*/, sqlite3_value** argumentos) {
    Proteger(contexto, [&] {
        const Celula padrao = LerCelula(argumentos[0]);
        const Celula texto = LerCelula(argumentos[1]);
        if (padrao.classe != SQLITE_TEXT || texto.classe != SQLITE_TEXT) {
            return;  // Null
        }
        auto* pronto = static_cast<Padrao*>(sqlite3_get_auxdata(contexto, 0));
        if (pronto != nullptr) {
            sqlite3_result_int(contexto, pronto->Casa(texto.texto) ? 1 : 0);
            return;
        }
        auto novo = std::make_unique<Padrao>(padrao.texto);
        sqlite3_result_int(contexto, novo->Casa(texto.texto) ? 1 : 0);
        sqlite3_set_auxdata(contexto, 0, novo.release(),
                            [](void* p) { delete static_cast<Padrao*>(p); });
    });
}

void ValorComparavel(sqlite3_context* contexto, int /*n*/, sqlite3_value** argumentos) {
    Proteger(contexto, [&] {
        const Valor valor = LerArgumento(argumentos);
        if (const auto* data = std::get_if<Data>(&valor)) {
            sqlite3_result_double(contexto, data->Serial());
        } else if (const auto* booleano = std::get_if<bool>(&valor)) {
            sqlite3_result_int(contexto, *booleano ? -1 : 0);
        } else {
            sqlite3_result_value(contexto, argumentos[0]);
        }
    });
}

void TextoDoValor(sqlite3_context* contexto, int /*n*/, sqlite3_value** argumentos) {
    Proteger(contexto, [&] {
        const Valor valor = LerArgumento(argumentos);
        if (!EhNulo(valor)) {
            DevolverTexto(contexto, TextoCampo(valor));
        }
    });
}

// Aligned as the memory that SQLite hands out.
__extension__ typedef __int128 Inteiro128 __attribute__((aligned(8)));

// A running sum. It lies in memory that SQLite hands out zeroed, which is an empty one.
struct Soma {
    Inteiro128 inteira;  // wide enough that only the result can overflow
    double real;
    std::int64_t parcelas;
    TipoColuna tipo;
};

void Somar(sqlite3_context* contexto, int /*n*/, sqlite3_value** argumentos) {
    Proteger(contexto, [&] {
        if (sqlite3_value_type(argumentos[0]) == SQLITE_NULL) {
            return;
        }
        auto* soma = static_cast<Soma*>(sqlite3_aggregate_context(contexto, sizeof(Soma)));
        if (soma == nullptr) {
            throw std::bad_alloc();
        }
        const Valor valor = LerArgumento(argumentos);
        soma->tipo = LerTipo(argumentos);
        ++soma->parcelas;
        if (const auto* moeda = std::get_if<Moeda>(&valor)) {
            soma->inteira += moeda->DecimosMilesimos();
        } else if (const auto* duplo = std::get_if<double>(&valor)) {
            soma->real += *duplo;
        } else {
            soma->inteira += LongCampo(valor);
        }
    });
}

Soma* SomaPronta(sqlite3_context* contexto) {
    auto* soma = static_cast<Soma*>(sqlite3_aggregate_context(contexto, 0));
    return soma == nullptr || soma->parcelas == 0 ? nullptr : soma;
}

void DevolverSoma(sqlite3_context* contexto) {
    const Soma* soma = SomaPronta(contexto);
    if (soma == nullptr) {
        return;  // Null
    }
    if (soma->tipo != TipoColuna::Moeda) {
        sqlite3_result_double(contexto, static_cast<double>(soma->inteira) + soma->real);
        return;
    }
    Proteger(contexto, [&] {
        if (soma->inteira < std::numeric_limits<std::int64_t>::min() ||
            soma->inteira > std::numeric_limits<std::int64_t>::max()) {
            LancarEstouro("a soma não cabe em Moeda");
        }
        sqlite3_result_int64(contexto, static_cast<std::int64_t>(soma->inteira));
    });
}

int Comparar(void* alfabeto, int tamanhoA, const void* a, int tamanhoB, const void* b) {
    return static_cast<Alfabeto*>(alfabeto)->Comparar(
        {static_cast<const char*>(a), static_cast<std::size_t>(tamanhoA)},
        {static_cast<const char*>(b), static_cast<std::size_t>(tamanhoB)});
}

struct Funcao {
    const char* nome;
    int argumentos;
    void (*escalar)(sqlite3_context*, int, sqlite3_value**);
    void (*passo)(sqlite3_context*, int, sqlite3_value**);
    void (*fim)(sqlite3_context*);
};

constexpr Funcao Funcoes[] = {
    {"tarvo_como", 2, Como, nullptr, nullptr},
    {"tarvo_valor", 4, ValorComparavel, nullptr, nullptr},
    {"tarvo_texto", 4, TextoDoValor, nullptr, nullptr},
    {"tarvo_soma", 4, nullptr, Somar, DevolverSoma},
};

// Registering twice would fail while the other owner's statements run.
bool JaRegistradas(sqlite3* db) {
    sqlite3_stmt* instrucao = nullptr;
    const int estado =
        sqlite3_prepare_v2(db, "SELECT tarvo_soma(1, 2, '', '')", -1, &instrucao, nullptr);
    sqlite3_finalize(instrucao);
    return estado == SQLITE_OK;
}

}  // namespace

void RegistrarFuncoes(sqlite3* db) {
    if (JaRegistradas(db)) {
        return;
    }
    auto alfabeto = std::make_unique<Alfabeto>();
    int estado = sqlite3_create_collation_v2(db, "tarvo_pt", SQLITE_UTF8, alfabeto.get(), Comparar,
                                             [](void* p) { delete static_cast<Alfabeto*>(p); });
    if (estado == SQLITE_OK) {
        alfabeto.release();  // NOLINT(bugprone-unused-return-value): the connection owns it now
    }
    for (const Funcao& funcao : Funcoes) {
        if (estado == SQLITE_OK) {
            estado = sqlite3_create_function_v2(db, funcao.nome, funcao.argumentos,
                                                SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                                                funcao.escalar, funcao.passo, funcao.fim, nullptr);
        }
    }
    if (estado != SQLITE_OK) {
        LancarErroSQLite(db);
    }
}

}  // namespace tarvo::sqlite
