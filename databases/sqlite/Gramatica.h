// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "databases/sqlite/Arvore.h"

// The dialect, no wider than what the reports and their review send:
//
//   SELECT [DISTINCTROW] item, ... FROM table, table INNER JOIN table ON condition, ...
//     [WHERE condition] [GROUP BY value, ...] [HAVING condition] [ORDER BY value, ...]
//   DELETE * FROM table
//
// either ended by an optional semicolon. An item is *, table.* or value [AS name]; a name with
// blanks stands in brackets. Operators, loosest first: Or; And; = <= >= and Like 'beginning*'; &.
// Functions: Left(text, number), Sum(value). Values: columns, 'texts', whole numbers, True, False.
// Keywords and names are read without regard to case.
namespace tarvo::sqlite {

// Error 3075 with the place for any other text.
Consulta Analisar(std::string_view consulta);

}  // namespace tarvo::sqlite
