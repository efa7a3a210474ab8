// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "data/CodigosDeErros.h"

struct pg_conn;
struct pg_result;

namespace tarvo::postgresql {

// What a server, or the way to it, answered instead of what was asked for.
class FalhaDoServidor : public Erro {
  public:
    // estado: the five characters of SQLSTATE; empty when there was no answer.
    FalhaDoServidor(std::string estado, const std::string& detalhe);

    // A transaction with a server that comes back, or a new connection, may do it.
    [[nodiscard]] bool Passageira() const;
    // Somebody between us and the server gives our transactions connections of others, on which
    // statements that we prepared are not.
    [[nodiscard]] bool SemPreparadas() const;
    // The tables are no longer what they were when we read of them.
    [[nodiscard]] bool EsquemaMudou() const;

  private:
    std::string estado_;
};

// Of a connection that could not be made. antes: what is told before libpq's words.
[[noreturn]] void LancarFalhaDeConexao(pg_conn* conexao, const std::string& antes);
// Of a result; of the connection, where there is no result.
[[noreturn]] void LancarFalha(pg_conn* conexao, const pg_result* resultado);

}  // namespace tarvo::postgresql
