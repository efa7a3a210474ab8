// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "databases/postgresql/Esquema.h"
#include "databases/sqlite/Conexao.h"

namespace tarvo::postgresql {

// A table, with the columns that are wanted, and which of its rows: a condition, empty for all.
using LinhasDaTabela = std::pair<TabelaDoServidor, std::string>;

// Those rows as they all were at one moment, in a private database of their own that nobody may
// write to: however many they are, little of them is in memory at a time.
std::shared_ptr<sqlite::Conexao> LerInteiras(Sessao& sessao,
                                             const std::vector<LinhasDaTabela>& linhas);

}  // namespace tarvo::postgresql
