// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>

#include "data/TabelasDoBanco.h"
#include "databases/sqlite/Celula.h"

// The tables of a declaration database in SQLite's dialect.
namespace tarvo::sqlite {

TipoColuna TipoDe(const ColunaDoBanco& coluna);

// The names, separated by commas.
std::string NomesSql(std::span<const ColunaDoBanco> colunas);

// What stands between the parentheses of CREATE TABLE, for these of the table's columns.
std::string Definicao(const TabelaDoBanco& tabela, std::span<const ColunaDoBanco> colunas);

std::string CriacaoSql(const TabelaDoBanco& tabela, std::span<const ColunaDoBanco> colunas);

// With a parameter for each of the columns.
std::string InsercaoSql(const TabelaDoBanco& tabela, std::span<const ColunaDoBanco> colunas);

}  // namespace tarvo::sqlite
