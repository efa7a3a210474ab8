// SPDX-License-Identifier: MIT
#include <sqlite3.h>

#include <cstdlib>
#include <new>

#include "tests/interface/Exemplo.h"

// Every allocation of a host's whole use of the library fails once: each run ends with its result
// or with error 7, and what was opened can be released.

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr long Passo = 40;  // coarser: every life takes ten times as long
#else
constexpr long Passo = 400;
#endif

thread_local long RestamAlocacoes = -1;  // negative: none fails

void* Alocar(std::size_t bytes) {
    if (RestamAlocacoes > 0 && --RestamAlocacoes == 0) {
        throw std::bad_alloc();
    }
    void* bloco = std::malloc(bytes == 0 ? 1 : bytes);
    if (bloco == nullptr) {
        throw std::bad_alloc();
    }
    return bloco;
}

}  // namespace

// Not inlined: the compiler would take them for the library's own and complain of the free.
[[gnu::noinline]] void* operator new(std::size_t bytes) {
    return Alocar(bytes);
}
[[gnu::noinline]] void operator delete(void* bloco) noexcept {
    std::free(bloco);
}
[[gnu::noinline]] void operator delete(void* bloco, std::size_t /*bytes*/) noexcept {
    std::free(bloco);
}

namespace tarvo::teste {
namespace {

class Memoria : public ComExemplo {
  protected:
    Memoria() { setenv("SOURCE_DATE_EPOCH", "1060000000", 1); }

    struct Resultado {
        std::int32_t erro = 0;      // the first one
        std::size_t produzido = 0;  // a sum over all exported bytes
    };

    // On the host's connection, or on one that the library opens when conexao is null.
    [[nodiscard]] static Resultado UmaVida(const char* arquivo, sqlite3* conexao) {
        tarvo_banco banco = 0;
        tarvo_objeto objeto = 0;
        Resultado r;
        const auto chamar = [&r](auto operacao) {
            if (r.erro == 0) {
                r.erro = operacao();
            }
        };
        chamar([&] {
            return conexao == nullptr
                       ? tarvo_abrir_banco(arquivo, TARVO_SOMENTE_LEITURA | TARVO_TABELAS_PRIVADAS,
                                           &banco)
                       : tarvo_adotar_banco(conexao, TARVO_TABELAS_PRIVADAS, &banco);
        });
        chamar([&] { return tarvo_criar("RelatoriosTarvo.RelatorioApuracaoOpProp", &objeto); });
        chamar([&] { return tarvo_construir(objeto, banco, IE, DRQ); });
        for (const std::int32_t formato : {TARVO_JSON, TARVO_PDF, TARVO_CSV, TARVO_XLSX}) {
            tarvo_memoria memoria = 0;
            const char* bytes = "";
            std::size_t tamanho = 0;
            chamar([&] { return tarvo_exportar_memoria(objeto, formato, &memoria); });
            chamar([&] { return tarvo_memoria_bytes(memoria, &bytes, &tamanho); });
            r.produzido = r.produzido * 31 + std::hash<std::string_view>()({bytes, tamanho});
            EXPECT_EQ(tarvo_liberar(memoria), 0);
        }
        EXPECT_EQ(tarvo_liberar(objeto), 0);
        EXPECT_EQ(tarvo_liberar(banco), 0);
        return r;
    }

    // One by one at first, then in growing steps: later ones repeat the same few places.
    void FalharCadaAlocacao(sqlite3* conexao) const {
        const std::string arquivo = Arquivo();
        const Resultado inteiro = UmaVida(arquivo.c_str(), conexao);
        ASSERT_EQ(inteiro.erro, 0) << tarvo_erro_texto();
        int falhas = 0;
        for (long qual = 1;; qual += 1 + qual / Passo) {
            RestamAlocacoes = qual;
            const Resultado r = UmaVida(arquivo.c_str(), conexao);
            const bool chegou = RestamAlocacoes > 0;
            RestamAlocacoes = 0;
            // Where less memory will do, the result is whole.
            ASSERT_EQ(r.erro, r.produzido == inteiro.produzido ? 0 : 7)
                << "allocation " << qual << ": " << tarvo_erro_texto();
            if (chegou) {
                break;
            }
            falhas += r.erro == 7 ? 1 : 0;
        }
        EXPECT_GT(falhas, Passo);
    }
};

TEST_F(Memoria, WhereverItEndsTheCallEndsWithError7) {
    FalharCadaAlocacao(nullptr);
}

TEST_F(Memoria, TheHostsConnectionStaysAsItWas) {
    sqlite3* conexao = nullptr;
    ASSERT_EQ(sqlite3_open(Arquivo().c_str(), &conexao), SQLITE_OK);
    FalharCadaAlocacao(conexao);
    char** linhas = nullptr;
    int quantas = -1;
    EXPECT_EQ(sqlite3_get_table(conexao, "SELECT name FROM sqlite_temp_schema", &linhas, &quantas,
                                nullptr, nullptr),
              SQLITE_OK);
    EXPECT_EQ(quantas, 0) << "a temporary table was left: " << linhas[1];
    sqlite3_free_table(linhas);
    EXPECT_EQ(sqlite3_close(conexao), SQLITE_OK) << "a statement was left open";
}

}  // namespace
}  // namespace tarvo::teste
