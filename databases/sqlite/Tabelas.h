// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

// The tables of a declaration database as CriarBanco makes them.
namespace tarvo::sqlite {

struct DefinicaoTabela {
    std::string_view nome;
    std::string_view colunas;  // what stands between the parentheses of CREATE TABLE
    std::string_view indice;   // the column by which one declaration's rows are found; may be empty
};

// One of its columns.
struct DefinicaoColuna {
    std::string nome;
    std::string tipo;       // as declared
    bool semCaixa = false;  // compares without regard to case
    bool chave = false;     // rows of other tables are found by it
    std::string definicao;  // the column in CREATE TABLE, with its constraints
};
std::vector<DefinicaoColuna> ColunasDe(const DefinicaoTabela& tabela);

std::span<const DefinicaoTabela> TabelasDoBanco();

// Whose a table's rows are, and by which column those of one are found: a taxpayer's by IE, a
// declaration's by NroDRQ, an entry's of tblOcorrências by Código; or everybody's.
enum class Dono { Contribuinte, Declaracao, Subitem, Todos };
Dono DonoDe(const DefinicaoTabela& tabela);
// The four that reports empty and refill.
std::span<const DefinicaoTabela> TabelasRefeitas();

}  // namespace tarvo::sqlite
