#pragma once

struct sqlite3;

// What generated SQL calls beyond SQLite's own functions.
namespace tarvo::sqlite {

// Registers, unless the connection has them already:
//
//   collation tarvo_pt                         Portuguese alphabet, without regard to case
//   tarvo_como(pattern, text)                  Like
//   tarvo_valor(value, type, table, column)    the value in comparable form: dates as serials,
//                                              True as -1; error 3421 when it does not fit the type
//   tarvo_texto(value, type, table, column)    the value as text, as "&" and Like take it
//   tarvo_soma(value, type, table, column)     Sum: exact; Null when all are Null; error 6 when the
//                                              sum does not fit
//
// type is a number of TipoColuna; table and column are empty for computed values.
void RegistrarFuncoes(sqlite3* db);

}  // namespace tarvo::sqlite
