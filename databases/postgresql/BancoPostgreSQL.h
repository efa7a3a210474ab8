// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "data/BancoDados.h"
#include "databases/sqlite/Conexao.h"

// Declaration databases on PostgreSQL servers. Queries run in private SQLite databases, into which
// the rows come that they are about; nothing is ever written to the server.
namespace tarvo::postgresql {

// Connects. A declaration is read as a whole, in one transaction, when the first query asks for it,
// and again with the next LeituraMantida; a query that asks for none reads its tables whole. A
// connection that is lost is made anew, for two minutes at the most. Errors: 3029 the user or the
// password is not accepted, 3151 no server answers, 3024 it has no such database, 3078 that has no
// table of declarations, 3061 tables lack the column "ordem", 3112 the user may not read them, 5 no
// address; while reading also 3146 the server gave up (a time limit of its own), 61 no space for
// rows of many declarations. quem: asked while it connects, nullptr for nobody; error 18 when it
// wants no more.
std::unique_ptr<BancoDados> Abrir(const std::string& endereco, Acompanhante* quem);

// All rows of all tables, in a private database; or of the chosen declarations, and perhaps of
// others too. quem: asked while they come, nullptr for nobody. The same errors, and 18.
std::shared_ptr<sqlite::Conexao> LerTudo(const std::string& endereco,
                                         const std::optional<std::string>& IE,
                                         const std::optional<std::int32_t>& NroDRQ,
                                         Acompanhante* quem);

}  // namespace tarvo::postgresql
