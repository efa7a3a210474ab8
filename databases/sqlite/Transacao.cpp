// SPDX-License-Identifier: MIT
#include "databases/sqlite/Transacao.h"

#include <sqlite3.h>

#include <thread>

namespace tarvo::sqlite {

namespace {

bool EmTransacao(const Conexao& conexao) {
    return sqlite3_get_autocommit(conexao.Db()) == 0;
}

}  // namespace

Transacao::Transacao(Conexao& conexao) : conexao_(conexao), propria_(!EmTransacao(conexao)) {
    conexao_.Executar(propria_ ? "BEGIN" : "SAVEPOINT tarvo");
    aberta_ = true;
}

Transacao::Transacao(Conexao& conexao, const Tabela& tabela, std::chrono::milliseconds espera)
    : conexao_(conexao), propria_(!EmTransacao(conexao)) {
    const bool compartilhada = tabela.esquema != "temp";
    if (propria_) {
        Executar(compartilhada ? "BEGIN IMMEDIATE" : "BEGIN", espera);
        aberta_ = true;
        return;
    }
    conexao_.Executar("SAVEPOINT tarvo");
    aberta_ = true;
    const bool adianta = sqlite3_txn_state(conexao_.Db(), "main") == SQLITE_TXN_NONE;
    if (compartilhada) {
        try {
            Executar("DELETE FROM " + tabela.Sql() + " WHERE 0",
                     adianta ? espera : std::chrono::milliseconds(0));
        } catch (...) {
            Desfazer();
            throw;
        }
    }
}

Transacao::~Transacao() {
    Desfazer();
}

// Other readers of a database without WAL may hold up its end too.
void Transacao::Confirmar() {
    Executar(propria_ ? "COMMIT" : "RELEASE tarvo", EsperaPelaVez);
    aberta_ = false;
}

void Transacao::Executar(const std::string& sql, std::chrono::milliseconds espera) {
    using Relogio = std::chrono::steady_clock;
    const auto inicio = Relogio::now();
    conexao_.Comecar();
    for (int tentativa = 0;; ++tentativa) {
        const int resultado = conexao_.Tentar(sql.c_str());
        const auto esperado =
            std::chrono::duration_cast<std::chrono::milliseconds>(Relogio::now() - inicio);
        if ((resultado & 0xFF) != SQLITE_BUSY || esperado >= espera) {
            return conexao_.Conferir(resultado);
        }
        conexao_.Perguntar(esperado);
        std::this_thread::sleep_for(Vigilancia::Pausa(tentativa));
    }
}

// Where SQLite has undone it already, after some failures of the disk, there is nothing left to do.
void Transacao::Desfazer() noexcept {
    if (aberta_ && EmTransacao(conexao_)) {
        static_cast<void>(
            conexao_.Tentar(propria_ ? "ROLLBACK" : "ROLLBACK TO tarvo; RELEASE tarvo"));
    }
    aberta_ = false;
}

}  // namespace tarvo::sqlite
