// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "databases/sqlite/Arvore.h"
#include "databases/sqlite/Esquema.h"

// Whole queries of the dialect in SQLite's.
namespace tarvo::sqlite {

// A column of a query's rows.
struct ColunaSaida {
    std::string nome;  // without case
    // The table by which the name can be qualified, without case; empty for named and computed
    // columns.
    std::string tabelaQualificadora;
    TipoColuna tipo = TipoColuna::Livre;
    // Where the value is stored; empty for a computed one.
    std::string tabela;
    std::string coluna;
};

struct SelecaoSql {
    std::string sql;
    std::vector<ColunaSaida> colunas;
    std::shared_ptr<const Tabela> gravavel;  // the table of a plain "SELECT * FROM table"
};

// Rows come in the order of ORDER BY; equal ones, and all without ORDER BY, in the order in which
// they were added: without ORDER BY that of the first table named in FROM, then of the second and
// so on; with it that of the table that gives the first column, and so on. Grouped rows come in
// the order of the first row of each group.
//
// DISTINCTROW keeps one row for each combination of rows of the tables that give columns; the
// other tables only have to have a row that fits. It means nothing in a query with sums.
SelecaoSql Traduzir(const Selecao& selecao, Esquema& esquema, std::string_view consulta);

struct ExclusaoSql {
    std::string sql;
    std::string esquema;  // whose table is emptied
};

// Error 3078.
ExclusaoSql Traduzir(const Exclusao& exclusao, Esquema& esquema);

}  // namespace tarvo::sqlite
