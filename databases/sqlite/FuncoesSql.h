// SPDX-License-Identifier: MIT
#pragma once

#include <exception>

struct sqlite3;

// What generated SQL calls beyond SQLite's own functions.
namespace tarvo::sqlite {

// The error that a function left when it ended its statement: it travels beside the connection,
// since whatever SQLite's own text says may come from the database.
struct ErroPendente {
    std::exception_ptr erro;
};

// Registers, unless the connection has them already:
//
//   collation tarvo_pt                         Portuguese alphabet, without regard to case
//   tarvo_valor(value, type, table, column)    the value in comparable form: dates as serials,
//                                              True as -1; error 3421 when it does not fit the type
//   tarvo_texto(value, type, table, column)    the value as text, as "&" and Left take it
//   tarvo_soma(value, type, table, column)     Sum: exact; Null when all are Null; error 6 when the
//                                              sum does not fit
//   tarvo_erro_pendente(pointer)               for this file alone: see RegistrarFuncoes
//
// type is a number of TipoColuna; table and column are empty for computed values. What is returned
// lives as long as the connection.
ErroPendente& RegistrarFuncoes(sqlite3* db);

}  // namespace tarvo::sqlite
