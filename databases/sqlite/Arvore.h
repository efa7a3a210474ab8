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
    Funcao,  // nome, partes; "*" as the only part of Count(*) is Todas
    Todas,
    Texto,        // nome holds the literal
    Numero,       // nome holds the digits, with their sign
    LiteralData,  // nome holds month/day/year
    Verdadeiro,
    Falso,
    ValorNulo,
    E,
    Ou,
    Nao,
    Igual,
    Diferente,
    Menor,
    MenorIgual,
    Maior,
    MaiorIgual,
    Como,    // text, pattern
    EhNulo,  // one part
    Entre,   // value, first, last
    Em,      // value, then the list
    Concatenar,
};

struct Expressao {
    Operacao operacao = Operacao::ValorNulo;
    std::size_t posicao = 0;  // byte offset in the query
    std::string nome;
    std::string tabela;
    std::vector<Expressao> partes;
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

struct ItemOrdem {
    Expressao expressao;
    bool decrescente = false;
};

enum class Unicidade { Nenhuma, Distinct, DistinctRow };

// Conditions are the terms that And joins at the outermost level.
struct Selecao {
    Unicidade unicidade = Unicidade::Nenhuma;
    std::vector<ItemSelecao> itens;
    std::vector<TabelaCitada> tabelas;
    std::vector<Expressao> juncoes;  // of the ON clauses
    std::vector<Expressao> condicoes;
    std::vector<Expressao> grupos;
    std::vector<Expressao> condicoesDosGrupos;
    std::vector<ItemOrdem> ordem;
};

struct Exclusao {
    TabelaCitada tabela;
    std::vector<Expressao> condicoes;
};

using Comando = std::variant<Selecao, Exclusao>;

}  // namespace tarvo::sqlite
