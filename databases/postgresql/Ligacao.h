// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "data/ObjetoDeC.h"
#include "databases/postgresql/Libpq.h"

namespace tarvo::postgresql {

using Conexao = ObjetoDeC<Liberar<PQfinish, PGconn>>;

// A connection with the server of the address, or with the first of its servers that serves: one
// that does not answer within connect_timeout (15 seconds when left out) is passed over, as is each
// of its numbers that cannot be reached. aoEsperar is called some twenty times a second meanwhile;
// what it throws ends the attempt and reaches the caller. Errors: FalhaDoServidor; 5 for a
// connect_timeout that is no number.
Conexao Ligar(const std::string& endereco, const std::function<void()>& aoEsperar);

}  // namespace tarvo::postgresql
