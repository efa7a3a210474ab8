#pragma once

#include <span>
#include <string>
#include <string_view>

// The tables of a declaration database as CriarBanco makes them.
namespace tarvo::sqlite {

struct DefinicaoTabela {
    std::string_view nome;
    std::string_view colunas;  // what stands between the parentheses of CREATE TABLE
    std::string_view indice;   // the column by which one declaration's rows are found; may be empty
};

std::span<const DefinicaoTabela> TabelasDoBanco();
// The four that reports empty and refill.
std::span<const DefinicaoTabela> TabelasRefeitas();

}  // namespace tarvo::sqlite
