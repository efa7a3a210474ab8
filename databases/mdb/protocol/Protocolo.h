// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

// What the process that reads a file of the desktop engine writes to its pipe. It is started with
// the file as descriptor 3 and the arguments CODE-PAGE TABLE|COLUMN|COLUMN…, one for each table
// that is wanted.
//
// A frame is its kind (one byte), the number of bytes that follow (four), and these. Numbers are in
// the machine's own order: both ends are on it.
namespace tarvo::mdb {

constexpr int DescritorDoArquivo = 3;
constexpr char Separador = '|';

enum class Quadro : std::uint8_t {
    // A table that the file has: its place among the arguments (2 bytes), how many rows its header
    // says that it has (4), the number of columns (1), the place of each among the wanted ones (1).
    Tabela = 1,
    // A row of the last table: for each of its columns the type (1) and the value.
    Linha = 2,
    // The last one: the number of tables (2), and for each its place (2), the rows that were sent
    // (4), and how many of its texts hold characters that could not be read (4).
    Fim = 3,
    // Instead of the last one: why the file is not read (1), and the table that this is about (2).
    Recusa = 4,
};

enum class Tipo : std::uint8_t {
    Nulo = 0,
    Longo = 1,     // 4 bytes
    Moeda = 2,     // 8 bytes, ten-thousandths
    Data = 3,      // double, days since 30/12/1899
    Duplo = 4,     // double
    Decimal = 5,   // length (4) and a number as text with a decimal point
    Texto = 6,     // length (4) and UTF-8
    Booleano = 7,  // 1 byte, 0 or 1
    Binario = 8,   // nothing follows: no column of a declaration holds such data
};

enum class Motivo : std::uint8_t {
    Danificado = 1,
    VersaoDesconhecida = 2,
    Criptografado = 3,
    ComSenha = 4,
    TabelaVinculada = 5,
    SemMemoria = 6,
    CodificacaoDesconhecida = 7,
};

}  // namespace tarvo::mdb
