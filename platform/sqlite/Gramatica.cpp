#include "platform/sqlite/Gramatica.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/sqlite/Alfabeto.h"
#include "platform/sqlite/Lexico.h"

namespace tarvo::sqlite {

namespace {

// Words that cannot name a table or column without brackets.
constexpr std::array<std::string_view, 25> Reservadas{
    "SELECT", "DISTINCT", "DISTINCTROW", "FROM",  "WHERE", "GROUP", "HAVING", "ORDER", "BY",
    "ASC",    "DESC",     "AS",          "INNER", "JOIN",  "ON",    "AND",    "OR",    "NOT",
    "LIKE",   "BETWEEN",  "IN",          "IS",    "NULL",  "TRUE",  "FALSE"};

constexpr std::array<std::pair<std::string_view, Operacao>, 6> Comparacoes{{
    {"=", Operacao::Igual},
    {"<>", Operacao::Diferente},
    {"<", Operacao::Menor},
    {"<=", Operacao::MenorIgual},
    {">", Operacao::Maior},
    {">=", Operacao::MaiorIgual},
}};

// Deeper nesting than this is no query that a program writes.
constexpr int ProfundidadeMaxima = 200;

bool MesmaPalavra(std::string_view texto, std::string_view palavra) {
    return std::ranges::equal(texto, palavra, [](char a, char b) {
        return (a >= 'a' && a <= 'z' ? a - 'a' + 'A' : a) == b;
    });
}

class Analisador {
  public:
    explicit Analisador(std::string_view consulta)
        : consulta_(consulta), simbolos_(Separar(consulta)) {}

    Comando Ler() {
        Comando comando;
        if (TomarPalavra("DELETE")) {
            comando = LerExclusao();
        } else if (TomarPalavra("SELECT")) {
            comando = LerSelecao();
        } else {
            Falhar("esperava SELECT ou DELETE");
        }
        TomarSinal(";");
        if (Atual().tipo != TipoSimbolo::Fim) {
            Falhar("esperava o fim da consulta");
        }
        return comando;
    }

  private:
    class Nivel {
      public:
        explicit Nivel(Analisador& dono) : dono_(dono) {
            if (++dono_.profundidade_ > ProfundidadeMaxima) {
                dono_.Falhar("expressão aninhada demais");
            }
        }
        ~Nivel() { --dono_.profundidade_; }
        Nivel(const Nivel&) = delete;
        Nivel& operator=(const Nivel&) = delete;

      private:
        Analisador& dono_;
    };

    [[nodiscard]] const Simbolo& Atual() const { return simbolos_[i_]; }
    [[nodiscard]] const Simbolo& Seguinte() const {
        return simbolos_[std::min(i_ + 1, simbolos_.size() - 1)];
    }
    [[nodiscard]] bool EhPalavra(std::string_view palavra) const {
        return Atual().tipo == TipoSimbolo::Palavra && MesmaPalavra(Atual().texto, palavra);
    }
    [[nodiscard]] static bool EhSinal(const Simbolo& simbolo, std::string_view sinal) {
        return simbolo.tipo == TipoSimbolo::Sinal && simbolo.texto == sinal;
    }

    bool TomarPalavra(std::string_view palavra) {
        const bool achou = EhPalavra(palavra);
        i_ += achou ? 1 : 0;
        return achou;
    }
    bool TomarSinal(std::string_view sinal) {
        const bool achou = EhSinal(Atual(), sinal);
        i_ += achou ? 1 : 0;
        return achou;
    }
    void ExigirPalavra(std::string_view palavra) {
        if (!TomarPalavra(palavra)) {
            Falhar("esperava " + std::string(palavra));
        }
    }
    void ExigirSinal(std::string_view sinal) {
        if (!TomarSinal(sinal)) {
            Falhar("esperava \"" + std::string(sinal) + "\"");
        }
    }
    [[noreturn]] void Falhar(std::string_view problema) const {
        LancarErroDeSintaxe(consulta_, Atual().posicao, problema);
    }

    [[nodiscard]] bool EhNome() const {
        if (Atual().tipo == TipoSimbolo::NomeEntreColchetes) {
            return !Atual().texto.empty();
        }
        return Atual().tipo == TipoSimbolo::Palavra &&
               std::ranges::none_of(Reservadas, [this](auto palavra) {
                   return MesmaPalavra(Atual().texto, palavra);
               });
    }
    std::string LerNome(std::string_view esperado) {
        if (!EhNome()) {
            Falhar("esperava " + std::string(esperado));
        }
        return simbolos_[i_++].texto;
    }
    TabelaCitada LerTabela() {
        const std::size_t posicao = Atual().posicao;
        return {LerNome("o nome de uma tabela"), posicao};
    }

    template <class LerUm>
    auto LerLista(LerUm lerUm) {
        std::vector<decltype(lerUm())> lista;
        do {
            lista.push_back(lerUm());
        } while (TomarSinal(","));
        return lista;
    }

    Exclusao LerExclusao() {
        TabelaCitada alvo;
        if (!TomarSinal("*") && !EhPalavra("FROM")) {
            alvo = LerTabela();
            ExigirSinal(".");
            ExigirSinal("*");
        }
        ExigirPalavra("FROM");
        Exclusao exclusao{LerTabela(), LerCondicoesDe("WHERE")};
        if (!alvo.nome.empty() && SemCaixa(alvo.nome) != SemCaixa(exclusao.tabela.nome)) {
            LancarErroDeSintaxe(consulta_, alvo.posicao, "não é a tabela de que se exclui");
        }
        return exclusao;
    }

    Selecao LerSelecao() {
        Selecao selecao;
        if (TomarPalavra("DISTINCTROW")) {
            selecao.unicidade = Unicidade::DistinctRow;
        } else if (TomarPalavra("DISTINCT")) {
            selecao.unicidade = Unicidade::Distinct;
        }
        selecao.itens = LerLista([this] { return LerItem(); });
        ExigirPalavra("FROM");
        do {
            LerJuncao(selecao);
        } while (TomarSinal(","));
        selecao.condicoes = LerCondicoesDe("WHERE");
        if (TomarPalavra("GROUP")) {
            ExigirPalavra("BY");
            selecao.grupos = LerLista([this] { return LerOu(); });
        }
        selecao.condicoesDosGrupos = LerCondicoesDe("HAVING");
        if (TomarPalavra("ORDER")) {
            ExigirPalavra("BY");
            selecao.ordem = LerLista([this] { return LerOrdem(); });
        }
        return selecao;
    }

    ItemSelecao LerItem() {
        ItemSelecao item;
        if (TomarSinal("*")) {
            return item;
        }
        if (EhNome() && EhSinal(Seguinte(), ".") && i_ + 2 < simbolos_.size() &&
            EhSinal(simbolos_[i_ + 2], "*")) {
            item.tabela = LerTabela();
            i_ += 2;
            return item;
        }
        item.expressao = LerOu();
        if (TomarPalavra("AS")) {
            item.apelido = LerNome("o nome da coluna");
        }
        return item;
    }

    // One entry of the FROM list: a table and those joined to it.
    void LerJuncao(Selecao& selecao) {
        selecao.tabelas.push_back(LerTabela());
        while (TomarPalavra("INNER")) {
            ExigirPalavra("JOIN");
            selecao.tabelas.push_back(LerTabela());
            ExigirPalavra("ON");
            SepararTermos(LerOu(), selecao.juncoes);
        }
    }

    ItemOrdem LerOrdem() {
        ItemOrdem item{LerOu()};
        item.decrescente = TomarPalavra("DESC");
        if (!item.decrescente) {
            TomarPalavra("ASC");
        }
        return item;
    }

    std::vector<Expressao> LerCondicoesDe(std::string_view palavra) {
        std::vector<Expressao> termos;
        if (TomarPalavra(palavra)) {
            SepararTermos(LerOu(), termos);
        }
        return termos;
    }

    static void SepararTermos(Expressao condicao, std::vector<Expressao>& termos) {
        if (condicao.operacao != Operacao::E) {
            termos.push_back(std::move(condicao));
            return;
        }
        for (Expressao& parte : condicao.partes) {
            SepararTermos(std::move(parte), termos);
        }
    }

    Expressao Folha(Operacao operacao, std::string nome = {}) {
        return {operacao, simbolos_[i_ - 1].posicao, std::move(nome), {}, {}};
    }

    static Expressao No(Operacao operacao, Expressao a) {
        Expressao no{operacao, a.posicao, {}, {}, {}};
        no.partes.push_back(std::move(a));
        return no;
    }
    static Expressao No(Operacao operacao, Expressao a, Expressao b) {
        Expressao no = No(operacao, std::move(a));
        no.partes.push_back(std::move(b));
        return no;
    }

    Expressao LerOu() {
        const Nivel nivel(*this);
        Expressao primeira = LerE();
        if (!EhPalavra("OR")) {
            return primeira;
        }
        Expressao cadeia = No(Operacao::Ou, std::move(primeira));
        while (TomarPalavra("OR")) {
            cadeia.partes.push_back(LerE());
        }
        return cadeia;
    }

    Expressao LerE() {
        Expressao primeira = LerNao();
        if (!EhPalavra("AND")) {
            return primeira;
        }
        Expressao cadeia = No(Operacao::E, std::move(primeira));
        while (TomarPalavra("AND")) {
            cadeia.partes.push_back(LerNao());
        }
        return cadeia;
    }

    Expressao LerNao() {
        if (!TomarPalavra("NOT")) {
            return LerComparacao();
        }
        const Nivel nivel(*this);
        return No(Operacao::Nao, LerNao());
    }

    Expressao LerComparacao() {
        Expressao valor = LerConcatenacao();
        for (const auto& [sinal, operacao] : Comparacoes) {
            if (TomarSinal(sinal)) {
                return No(operacao, std::move(valor), LerConcatenacao());
            }
        }
        if (TomarPalavra("IS")) {
            const bool negado = TomarPalavra("NOT");
            ExigirPalavra("NULL");
            return Negar(negado, No(Operacao::EhNulo, std::move(valor)));
        }
        const bool negado = TomarPalavra("NOT");
        if (TomarPalavra("LIKE")) {
            return Negar(negado, No(Operacao::Como, std::move(valor), LerConcatenacao()));
        }
        if (TomarPalavra("BETWEEN")) {
            Expressao faixa = No(Operacao::Entre, std::move(valor), LerConcatenacao());
            ExigirPalavra("AND");
            faixa.partes.push_back(LerConcatenacao());
            return Negar(negado, std::move(faixa));
        }
        if (TomarPalavra("IN")) {
            Expressao lista = No(Operacao::Em, std::move(valor));
            ExigirSinal("(");
            for (Expressao& parte : LerLista([this] { return LerConcatenacao(); })) {
                lista.partes.push_back(std::move(parte));
            }
            ExigirSinal(")");
            return Negar(negado, std::move(lista));
        }
        if (negado) {
            Falhar("esperava Like, Between ou In");
        }
        return valor;
    }

    static Expressao Negar(bool negado, Expressao condicao) {
        return negado ? No(Operacao::Nao, std::move(condicao)) : std::move(condicao);
    }

    Expressao LerConcatenacao() {
        Expressao primeira = LerPrimaria();
        if (!EhSinal(Atual(), "&")) {
            return primeira;
        }
        Expressao cadeia = No(Operacao::Concatenar, std::move(primeira));
        while (TomarSinal("&")) {
            cadeia.partes.push_back(LerPrimaria());
        }
        return cadeia;
    }

    Expressao LerPrimaria() {
        if (TomarSinal("(")) {
            Expressao valor = LerOu();
            ExigirSinal(")");
            return valor;
        }
        if (EhSinal(Atual(), "-") && Seguinte().tipo == TipoSimbolo::Numero) {
            ++i_;
            Expressao numero = LerLiteral(Operacao::Numero);
            numero.nome.insert(0, 1, '-');
            return numero;
        }
        switch (Atual().tipo) {
            case TipoSimbolo::Texto:
                return LerLiteral(Operacao::Texto);
            case TipoSimbolo::Numero:
                return LerLiteral(Operacao::Numero);
            case TipoSimbolo::Data:
                return LerLiteral(Operacao::LiteralData);
            default:
                break;
        }
        if (TomarPalavra("TRUE")) {
            return Folha(Operacao::Verdadeiro);
        }
        if (TomarPalavra("FALSE")) {
            return Folha(Operacao::Falso);
        }
        if (TomarPalavra("NULL")) {
            return Folha(Operacao::ValorNulo);
        }
        return LerColunaOuFuncao();
    }

    Expressao LerLiteral(Operacao operacao) {
        ++i_;
        return Folha(operacao, simbolos_[i_ - 1].texto);
    }

    Expressao LerColunaOuFuncao() {
        const bool funcao = Atual().tipo == TipoSimbolo::Palavra && EhSinal(Seguinte(), "(");
        Expressao folha{Operacao::Coluna, Atual().posicao, LerNome("um valor"), {}, {}};
        if (funcao) {
            folha.operacao = Operacao::Funcao;
            ExigirSinal("(");
            if (TomarSinal("*")) {
                folha.partes.push_back(Folha(Operacao::Todas));
            } else {
                folha.partes = LerLista([this] { return LerOu(); });
            }
            ExigirSinal(")");
        } else if (TomarSinal(".")) {
            folha.tabela = std::exchange(folha.nome, LerNome("o nome de uma coluna"));
        }
        return folha;
    }

    std::string_view consulta_;
    std::vector<Simbolo> simbolos_;
    std::size_t i_ = 0;
    int profundidade_ = 0;
};

}  // namespace

Comando Analisar(std::string_view consulta) {
    return Analisador(consulta).Ler();
}

}  // namespace tarvo::sqlite
