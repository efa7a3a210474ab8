// SPDX-License-Identifier: MIT
#include "databases/sqlite/GramaticaExpressoes.h"

#include <array>
#include <string>
#include <utility>

#include "data/Textos.h"

namespace tarvo::sqlite {

namespace {

constexpr std::array<std::pair<std::string_view, Operacao>, 3> Comparacoes{{
    {"=", Operacao::Igual},
    {"<=", Operacao::MenorIgual},
    {">=", Operacao::MaiorIgual},
}};

constexpr std::array<std::pair<std::string_view, Operacao>, 2> Constantes{{
    {"TRUE", Operacao::Verdadeiro},
    {"FALSE", Operacao::Falso},
}};

constexpr std::array<std::pair<TipoSimbolo, Operacao>, 2> Literais{{
    {TipoSimbolo::Texto, Operacao::Texto},
    {TipoSimbolo::Numero, Operacao::Numero},
}};

// Deeper nesting than this is no query that a program writes.
constexpr int ProfundidadeMaxima = 200;

Expressao No(Operacao operacao, Expressao a) {
    Expressao no{operacao, a.posicao, {}, {}, {}};
    no.partes.push_back(std::move(a));
    return no;
}

Expressao No(Operacao operacao, Expressao a, Expressao b) {
    Expressao no = No(operacao, std::move(a));
    no.partes.push_back(std::move(b));
    return no;
}

// One routine for each strength of operator, the loosest first.
class LeitorDeExpressoes {
  public:
    explicit LeitorDeExpressoes(Cursor& cursor) : cursor_(cursor) {}

    Expressao LerOu() {
        const Nivel nivel(*this);
        return LerCadeia(
            Operacao::Ou, [this] { return cursor_.TomarPalavra("OR"); }, [this] { return LerE(); });
    }

  private:
    class Nivel {
      public:
        explicit Nivel(LeitorDeExpressoes& dono) : dono_(dono) {
            if (++dono_.profundidade_ > ProfundidadeMaxima) {
                dono_.cursor_.Falhar("expressão aninhada demais");
            }
        }
        ~Nivel() { --dono_.profundidade_; }
        Nivel(const Nivel&) = delete;
        Nivel& operator=(const Nivel&) = delete;

      private:
        LeitorDeExpressoes& dono_;
    };

    // Parts joined by an operator; one node holds them all, so that long chains stay flat.
    template <class TomarLigacao, class LerParte>
    Expressao LerCadeia(Operacao operacao, TomarLigacao tomarLigacao, LerParte lerParte) {
        Expressao valor = lerParte();
        if (!tomarLigacao()) {
            return valor;
        }
        Expressao cadeia = No(operacao, std::move(valor));
        do {
            cadeia.partes.push_back(lerParte());
        } while (tomarLigacao());
        return cadeia;
    }

    Expressao LerE() {
        return LerCadeia(
            Operacao::E, [this] { return cursor_.TomarPalavra("AND"); },
            [this] { return LerComparacao(); });
    }

    Expressao LerComparacao() {
        Expressao valor = LerConcatenacao();
        for (const auto& [sinal, operacao] : Comparacoes) {
            if (cursor_.TomarSinal(sinal)) {
                return No(operacao, std::move(valor), LerConcatenacao());
            }
        }
        return cursor_.TomarPalavra("LIKE") ? LerComeco(std::move(valor)) : std::move(valor);
    }

    // value Like 'beginning*' is Left(value, its length) = 'beginning'.
    Expressao LerComeco(Expressao valor) {
        Expressao comeco{Operacao::Texto, cursor_.Atual().posicao, cursor_.Atual().texto, {}, {}};
        if (cursor_.Atual().tipo != TipoSimbolo::Texto || !comeco.nome.ends_with('*') ||
            comeco.nome.find_first_of("*?#[") != comeco.nome.size() - 1) {
            cursor_.Falhar("esperava um começo seguido de \"*\", entre aspas simples");
        }
        cursor_.Tomar();
        comeco.nome.pop_back();
        Expressao esquerda = No(Operacao::Comeco, std::move(valor));
        esquerda.nome = std::to_string(Caracteres(comeco.nome));
        return No(Operacao::Igual, std::move(esquerda), std::move(comeco));
    }

    Expressao LerConcatenacao() {
        return LerCadeia(
            Operacao::Concatenar, [this] { return cursor_.TomarSinal("&"); },
            [this] { return LerPrimaria(); });
    }

    Expressao LerPrimaria() {
        const std::size_t posicao = cursor_.Atual().posicao;
        if (cursor_.TomarSinal("(")) {
            Expressao valor = LerOu();
            cursor_.ExigirSinal(")");
            return valor;
        }
        if (cursor_.EhSinal("-") && cursor_.Adiante(1).tipo == TipoSimbolo::Numero) {
            cursor_.Tomar();
            return {Operacao::Numero, posicao, "-" + cursor_.Tomar().texto, {}, {}};
        }
        for (const auto& [tipo, operacao] : Literais) {
            if (cursor_.Atual().tipo == tipo) {
                return {operacao, posicao, cursor_.Tomar().texto, {}, {}};
            }
        }
        for (const auto& [palavra, operacao] : Constantes) {
            if (cursor_.TomarPalavra(palavra)) {
                return {operacao, posicao, {}, {}, {}};
            }
        }
        return LerColunaOuFuncao();
    }

    Expressao LerColunaOuFuncao() {
        const std::size_t posicao = cursor_.Atual().posicao;
        if (cursor_.EhSinal("(", 1)) {
            return LerFuncao(posicao);
        }
        Expressao coluna{Operacao::Coluna, posicao, cursor_.LerNome("um valor"), {}, {}};
        if (cursor_.TomarSinal(".")) {
            coluna.tabela = std::exchange(coluna.nome, cursor_.LerNome("o nome de uma coluna"));
        }
        return coluna;
    }

    Expressao LerFuncao(std::size_t posicao) {
        const Nivel nivel(*this);
        const bool soma = cursor_.TomarPalavra("SUM");
        if (!soma && !cursor_.TomarPalavra("LEFT")) {
            cursor_.Falhar("função desconhecida");
        }
        cursor_.ExigirSinal("(");
        Expressao funcao = No(soma ? Operacao::Soma : Operacao::Comeco, LerConcatenacao());
        funcao.posicao = posicao;
        if (!soma) {
            cursor_.ExigirSinal(",");
            if (cursor_.Atual().tipo != TipoSimbolo::Numero) {
                cursor_.Falhar("Left espera um texto e um número de caracteres");
            }
            funcao.nome = cursor_.Tomar().texto;
        }
        cursor_.ExigirSinal(")");
        return funcao;
    }

    Cursor& cursor_;
    int profundidade_ = 0;
};

}  // namespace

Expressao LerExpressao(Cursor& cursor) {
    return LeitorDeExpressoes(cursor).LerOu();
}

}  // namespace tarvo::sqlite
