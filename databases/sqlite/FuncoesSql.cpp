// SPDX-License-Identifier: MIT
#include "databases/sqlite/FuncoesSql.h"

#include <sqlite3.h>

#include <limits>
#include <memory>

#include "data/CodigosDeErros.h"
#include "data/LeitoresDeCampo.h"
#include "databases/sqlite/Alfabeto.h"
#include "databases/sqlite/Celula.h"
#include "databases/sqlite/Conexao.h"

namespace tarvo::sqlite {

namespace {

// What the functions of one connection share.
struct Estado {
    ErroPendente pendente;
    Alfabeto alfabeto;
};

// Nothing may be thrown through SQLite: an error ends the statement and waits beside it.
template <class Corpo>
void Proteger(sqlite3_context* contexto, Corpo corpo) {
    try {
        corpo();
    } catch (...) {
        static_cast<Estado*>(sqlite3_user_data(contexto))->pendente.erro = std::current_exception();
        sqlite3_result_error_code(contexto, SQLITE_ERROR);
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

// A comparison has no way to say that it failed: what it answers then does not matter any more.
int Comparar(void* estado, int tamanhoA, const void* a, int tamanhoB, const void* b) {
    auto* meu = static_cast<Estado*>(estado);
    try {
        return meu->alfabeto.Comparar(
            {static_cast<const char*>(a), static_cast<std::size_t>(tamanhoA)},
            {static_cast<const char*>(b), static_cast<std::size_t>(tamanhoB)});
    } catch (...) {
        meu->pendente.erro = std::current_exception();
        return 0;
    }
}

constexpr const char* NomeDoPendente = "tarvo_erro_pendente";
constexpr const char* TipoDoPonteiro = "tarvo_estado";

void DizerEstado(sqlite3_context* contexto, int /*n*/, sqlite3_value** argumentos) {
    auto** destino = static_cast<Estado**>(sqlite3_value_pointer(argumentos[0], TipoDoPonteiro));
    if (destino != nullptr) {
        *destino = static_cast<Estado*>(sqlite3_user_data(contexto));
    }
}

struct Funcao {
    const char* nome;
    int argumentos;
    void (*escalar)(sqlite3_context*, int, sqlite3_value**);
    void (*passo)(sqlite3_context*, int, sqlite3_value**);
    void (*fim)(sqlite3_context*);
};

constexpr Funcao Funcoes[] = {
    {"tarvo_valor", 4, ValorComparavel, nullptr, nullptr},
    {"tarvo_texto", 4, TextoDoValor, nullptr, nullptr},
    {"tarvo_soma", 4, nullptr, Somar, DevolverSoma},
};

// The state of the functions that the connection has already, nullptr when it has none: registering
// twice would fail while the other owner's statements run.
Estado* EstadoRegistrado(sqlite3* db) {
    Estado* estado = nullptr;
    sqlite3_stmt* instrucao = nullptr;
    const int resultado =
        sqlite3_prepare_v2(db, "SELECT tarvo_erro_pendente(?)", -1, &instrucao, nullptr);
    if (resultado == SQLITE_OK) {
        sqlite3_bind_pointer(instrucao, 1, &estado, TipoDoPonteiro, nullptr);
        sqlite3_step(instrucao);
    }
    sqlite3_finalize(instrucao);
    return estado;
}

}  // namespace

ErroPendente& RegistrarFuncoes(sqlite3* db) {
    if (Estado* registrado = EstadoRegistrado(db)) {
        return registrado->pendente;
    }
    auto novo = std::make_unique<Estado>();
    Estado* const estado = novo.get();
    const auto registrar = [&](const Funcao& funcao, void (*soltar)(void*)) {
        return sqlite3_create_function_v2(db, funcao.nome, funcao.argumentos,
                                          SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY,
                                          estado, funcao.escalar, funcao.passo, funcao.fim, soltar);
    };
    // From here on the connection owns the state, even when it refuses the function.
    int resultado = registrar({NomeDoPendente, 1, DizerEstado, nullptr, nullptr},
                              [](void* p) { delete static_cast<Estado*>(p); });
    static_cast<void>(novo.release());
    if (resultado == SQLITE_OK) {
        resultado =
            sqlite3_create_collation_v2(db, "tarvo_pt", SQLITE_UTF8, estado, Comparar, nullptr);
    }
    for (const Funcao& funcao : Funcoes) {
        if (resultado == SQLITE_OK) {
            resultado = registrar(funcao, nullptr);
        }
    }
    if (resultado != SQLITE_OK) {
        LancarErroSQLite(db, resultado);
    }
    return estado->pendente;
}

}  // namespace tarvo::sqlite
