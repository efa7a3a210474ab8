#include "databases/sqlite/GramaticaExpressoes.h"

#include <array>
#include <utility>

namespace tarvo::sqlite {

namespace {

constexpr std::array<std::pair<std::string_view, Operacao>, 6> Comparacoes{{
    {"=", Operacao::Igual},
    {"<>", Operacao::Diferente},
    {"<", Operacao::Menor},
    {"<=", Operacao::MenorIgual},
    {">", Operacao::Maior},
    {">=", Operacao::MaiorIgual},
}};

constexpr std::array<std::pair<std::string_view, Operacao>, 3> Constantes{{
    {"TRUE", Operacao::Verdadeiro},
    {"FALSE", Operacao::Falso},
    {"NULL", Operacao::ValorNulo},
}};

constexpr std::array<std::pair<TipoSimbolo, Operacao>, 3> Literais{{
    {TipoSimbolo::Texto, Operacao::Texto},
    {TipoSimbolo::Numero, Operacao::Numero},
    {TipoSimbolo::Data, Operacao::LiteralData},
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

Expressao Negar(bool negado, Expressao condicao) {
    return negado ? No(Operacao::Nao, std::move(condicao)) : std::move(condicao);
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
            [this] { return LerNao(); });
    }

    Expressao LerNao() {
        if (!cursor_.TomarPalavra("NOT")) {
            return LerComparacao();
        }
        const Nivel nivel(*this);
        return No(Operacao::Nao, LerNao());
    }

    Expressao LerComparacao() {
        Expressao valor = LerConcatenacao();
        for (const auto& [sinal, operacao] : Comparacoes) {
            if (cursor_.TomarSinal(sinal)) {
                return No(operacao, std::move(valor), LerConcatenacao());
            }
        }
        if (cursor_.TomarPalavra("IS")) {
            const bool negado = cursor_.TomarPalavra("NOT");
            cursor_.ExigirPalavra("NULL");
            return Negar(negado, No(Operacao::EhNulo, std::move(valor)));
        }
        const bool negado = cursor_.TomarPalavra("NOT");
        if (cursor_.TomarPalavra("LIKE")) {
            return Negar(negado, No(Operacao::Como, std::move(valor), LerConcatenacao()));
        }
        if (cursor_.TomarPalavra("BETWEEN")) {
            return Negar(negado, LerFaixa(std::move(valor)));
        }
        if (cursor_.TomarPalavra("IN")) {
            return Negar(negado, LerListaDeValores(std::move(valor)));
        }
        if (negado) {
            cursor_.Falhar("esperava Like, Between ou In");
        }
        return valor;
    }

    Expressao LerFaixa(Expressao valor) {
        Expressao faixa = No(Operacao::Entre, std::move(valor), LerConcatenacao());
        cursor_.ExigirPalavra("AND");
        faixa.partes.push_back(LerConcatenacao());
        return faixa;
    }

    Expressao LerListaDeValores(Expressao valor) {
        Expressao lista = No(Operacao::Em, std::move(valor));
        cursor_.ExigirSinal("(");
        for (Expressao& parte : cursor_.LerLista([this] { return LerConcatenacao(); })) {
            lista.partes.push_back(std::move(parte));
        }
        cursor_.ExigirSinal(")");
        return lista;
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
        const bool funcao = cursor_.Atual().tipo == TipoSimbolo::Palavra && cursor_.EhSinal("(", 1);
        Expressao folha{Operacao::Coluna, cursor_.Atual().posicao, {}, {}, {}};
        folha.nome = cursor_.LerNome("um valor");
        if (funcao) {
            folha.operacao = Operacao::Funcao;
            cursor_.ExigirSinal("(");
            if (cursor_.TomarSinal("*")) {
                folha.partes.push_back({Operacao::Todas, folha.posicao, {}, {}, {}});
            } else {
                folha.partes = cursor_.LerLista([this] { return LerOu(); });
            }
            cursor_.ExigirSinal(")");
        } else if (cursor_.TomarSinal(".")) {
            folha.tabela = std::exchange(folha.nome, cursor_.LerNome("o nome de uma coluna"));
        }
        return folha;
    }

    Cursor& cursor_;
    int profundidade_ = 0;
};

}  // namespace

Expressao LerExpressao(Cursor& cursor) {
    return LeitorDeExpressoes(cursor).LerOu();
}

}  // namespace tarvo::sqlite
