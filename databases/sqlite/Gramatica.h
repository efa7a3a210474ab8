#pragma once

#include <string_view>

#include "databases/sqlite/Arvore.h"

// The dialect:
//
//   SELECT [DISTINCTROW | DISTINCT] item, ... FROM table, table INNER JOIN table ON condition, ...
//     [WHERE condition] [GROUP BY value, ...] [HAVING condition] [ORDER BY value [ASC|DESC], ...]
//   DELETE [* | table.*] FROM table [WHERE condition]
//
// either ended by an optional semicolon. An item is *, table.* or value [AS name]; a name with
// blanks stands in brackets. Operators, loosest first: Or; And; Not; = <> < <= > >= Like, Between,
// In, Is Null; &. Functions: Left, Sum, Count, Min, Max. Keywords and names are read without regard
// to case.
namespace tarvo::sqlite {

// Error 3075 with the place for any other text.
Comando Analisar(std::string_view consulta);

}  // namespace tarvo::sqlite
