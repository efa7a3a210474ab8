// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

// A query as the grammar understood it; names are still as written.
namespace tarvo::sqlite {

enum class Operacao {
    Coluna,  // nome, tabela when qualified
    Soma,    // one part
    Comeco,  // of a text, one part; nome holds how many characters
    Texto,   // nome holds the literal
    Numero,  // nome holds the digits, with their sign
    Verdadeiro,
    Falso,
    E,
    Ou,
    Igual,
    MenorIgual,
    MaiorIgual,
    Concatenar,
};

struct Expressao {
    Operacao operacao = Operacao::Coluna;
    std::size_t posicao = 0;  // byte offset in the query
    std::string nome;
    std::string tabela;
    std::vector<Expressao> partes;
    int parametro = 0;  // of the statement, which stands for a literal
};

struct TabelaCitada {
    std::string nome;
    std::size_t posicao = 0;
};

// One entry of the SELECT list; without expressao it is "*" or, with tabela, "table.*".
struct ItemSelecao {
    std::optional<Expressao> expressao;
    std::string apelido;
    TabelaCitada tabela;
};

// Conditions are the terms that And joins at the outermost level.
struct Selecao {
    bool linhasDistintas = false;  // DISTINCTROW
    std::vector<ItemSelecao> itens;
    std::vector<TabelaCitada> tabelas;
    std::vector<Expressao> juncoes;  // of the ON clauses
    std::vector<Expressao> condicoes;
    std::vector<Expressao> grupos;
    std::vector<Expressao> condicoesDosGrupos;
    std::vector<Expressao> ordem;
};

// Of all rows.
struct Exclusao {
    TabelaCitada tabela;
};

using Consulta = std::variant<Selecao, Exclusao>;

}  // namespace tarvo::sqlite
