// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "data/TabelasDoBanco.h"

namespace tarvo::postgresql {

// Which rows a query can be about: of its tables, and of those tables the rows that its outermost
// conditions leave.
struct Alcance {
    std::vector<const TabelaDoBanco*> tabelas;  // without work tables and unknown ones
    std::optional<std::int32_t> NroDRQ;         // where it asks for one
    bool varias = false;                        // it asks for several at once
    std::optional<std::string> IE;
    std::vector<std::int32_t> codigos;  // of entries of tblOcorrências; empty: not by code

    // The columns that it names, of whatever table, without case; nothing: all.
    std::optional<std::set<std::string>> colunas;

    [[nodiscard]] bool Tem(Dono dono) const;
};

// Error 3075 for a text outside the dialect.
Alcance AlcanceDe(std::string_view consulta);

}  // namespace tarvo::postgresql
