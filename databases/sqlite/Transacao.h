// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>

#include "databases/sqlite/Conexao.h"
#include "databases/sqlite/Esquema.h"

namespace tarvo::sqlite {

constexpr std::chrono::milliseconds EsperaPelaVez = std::chrono::minutes(1);

// What is done in its lifetime happens as a whole: undone with it unless Confirmar was called.
// Inside a transaction of the host's it is a savepoint, so that the host still decides.
class Transacao {
  public:
    explicit Transacao(Conexao& conexao);
    // One in which tabela will be written: nobody else writes to the database meanwhile, unless the
    // table is temporary. Asks and waits for its turn; error 3260 after espera, or at once where
    // waiting cannot help, because the host's transaction has read a state that no longer is the
    // last or holds up the one that we wait for.
    Transacao(Conexao& conexao, const Tabela& tabela,
              std::chrono::milliseconds espera = EsperaPelaVez);
    ~Transacao();
    Transacao(const Transacao&) = delete;
    Transacao& operator=(const Transacao&) = delete;

    void Confirmar();

  private:
    void Executar(const std::string& sql, std::chrono::milliseconds espera);
    void Desfazer() noexcept;

    Conexao& conexao_;
    const bool propria_;
    bool aberta_ = false;
};

}  // namespace tarvo::sqlite
