// SPDX-License-Identifier: MIT
#include "fuzz/BancoDeFuzz.h"

#include <cstdio>
#include <cstdlib>
#include <iterator>

#include "databases/sqlite/Tabelas.h"
#include "embutido/linhas.h"

namespace tarvo::fuzz {

namespace {

void Executar(sqlite3* conexao, const std::string& sql) {
    if (sqlite3_exec(conexao, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        std::fprintf(stderr, "%s\n%s\n", sqlite3_errmsg(conexao), sql.c_str());
        std::abort();
    }
}

constexpr int InstrucoesPorPasso = 10'000;
constexpr int PassosDaTentativa = 200;

}  // namespace

BancoDeFuzz::BancoDeFuzz() {
    sqlite3_open(":memory:", &conexao_);
    for (const auto& tabelas : {TabelasDoBanco(), TabelasRefeitas()}) {
        for (const auto& tabela : tabelas) {
            Executar(conexao_, sqlite::CriacaoSql(tabela, tabela.Colunas()));
        }
    }
    Executar(conexao_, {std::begin(embutido::linhas), std::end(embutido::linhas)});
    banco_ = BancoSQLite::Adotar(conexao_);
}

BancoDeFuzz::~BancoDeFuzz() {
    banco_.reset();
    sqlite3_close(conexao_);
}

BancoDeFuzz& Banco() {
    static BancoDeFuzz banco;
    return banco;
}

Tentativa::Tentativa() {
    Executar(conexao_, "BEGIN");
    sqlite3_progress_handler(
        conexao_, InstrucoesPorPasso,
        [](void* passos) { return ++*static_cast<int*>(passos) > PassosDaTentativa ? 1 : 0; },
        &passos_);
}

Tentativa::~Tentativa() {
    sqlite3_progress_handler(conexao_, 0, nullptr, nullptr);
    // SQLite ends the transaction itself when it interrupts a statement that writes.
    if (sqlite3_get_autocommit(conexao_) == 0) {
        Executar(conexao_, "ROLLBACK");
    }
}

}  // namespace tarvo::fuzz
