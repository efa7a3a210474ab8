// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

#include "data/Valor.h"

struct sqlite3_stmt;
struct sqlite3_value;

// Values between SQLite's storage and the declared types.
namespace tarvo::sqlite {

// What a column holds. The numbers stand in generated SQL.
enum class TipoColuna : int {
    Livre = 0,  // declared as none of the others: read as it is stored
    Texto = 1,
    Longo = 2,
    Moeda = 3,     // integer, ten-thousandths
    Data = 4,      // "YYYY-MM-DD" or "YYYY-MM-DD HH:MM:SS"
    Booleano = 5,  // zero is False
    Duplo = 6,     // computed values only
};

TipoColuna TipoDeclarado(std::string_view declaracao);

// The table and column of a stored value; both empty for a computed one.
struct Origem {
    std::string_view tabela;
    std::string_view coluna;
};

// A stored value; texto points into SQLite's memory.
struct Celula {
    int classe;  // SQLITE_INTEGER, SQLITE_FLOAT, SQLITE_TEXT, SQLITE_BLOB, SQLITE_NULL
    std::int64_t inteiro = 0;
    double real = 0;
    std::string_view texto;  // of a BLOB, its bytes
};

Celula LerCelula(sqlite3_stmt* instrucao, int coluna);
Celula LerCelula(sqlite3_value* valor);

// The stored value as the column's type. Error 3421 when it does not fit; a computed value out of
// its type's range is error 6.
Valor Converter(const Celula& celula, TipoColuna tipo, const Origem& origem);

// A value to be written, converted to the column's type by the rules of the field readers; Null
// stays Null. Error 3421 when it does not convert.
Valor ConverterParaColuna(const Valor& valor, TipoColuna tipo, const Origem& origem);

// Binds a value in the form in which its type is stored; SQLite's result.
[[nodiscard]] int Vincular(sqlite3_stmt* instrucao, int parametro, const Valor& valor);

}  // namespace tarvo::sqlite
