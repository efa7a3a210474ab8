// SPDX-License-Identifier: MIT
#include "databases/sqlite/Tradutor.h"

#include <algorithm>

#include "data/CodigosDeErros.h"
#include "data/Procura.h"
#include "databases/sqlite/Alfabeto.h"
#include "databases/sqlite/Escopo.h"
#include "databases/sqlite/Expressoes.h"
#include "databases/sqlite/Lexico.h"

namespace tarvo::sqlite {

namespace {

void Juntar(std::string& lista, std::string_view ligacao, std::string_view item) {
    lista += lista.empty() ? std::string_view() : ligacao;
    lista += item;
}

std::string Clausula(std::string_view palavra, const std::string& lista) {
    return lista.empty() ? std::string() : std::string(palavra) + lista;
}

Expressao ColunaDe(const Tabela& tabela, const Coluna& coluna, std::size_t posicao) {
    return {Operacao::Coluna, posicao, coluna.nome, tabela.nome, {}};
}

struct Item {
    Expressao expressao;
    std::string apelido;
};

class TradutorSelecao {
  public:
    TradutorSelecao(const Selecao& selecao, Esquema& esquema, std::string_view consulta)
        : selecao_(selecao),
          consulta_(consulta),
          escopo_(esquema, selecao.tabelas, consulta),
          expressoes_(escopo_, consulta),
          condicoes_(selecao.juncoes) {
        escopo_.DeclararJuncoes(selecao.juncoes);
        condicoes_.insert(condicoes_.end(), selecao.condicoes.begin(), selecao.condicoes.end());
        DesdobrarItens();
        DistribuirGrupos();
        PropagarTextos();
        MarcarSaida();
    }

    SelecaoSql Traduzir() {
        SelecaoSql traduzida;
        std::string itens;
        for (const Item& item : itens_) {
            ExigirAgrupada(item.expressao);
            const ExpressaoSql valor = expressoes_.Traduzir(item.expressao);
            Juntar(itens, ", ", valor.sql);
            traduzida.colunas.push_back(Saida(item, valor, traduzida.colunas.size()));
        }
        traduzida.sql = "SELECT " + itens + Origens() + Clausula(" GROUP BY ", grupos_) +
                        Clausula(" ORDER BY ", Ordem());
        if (EhTabelaInteira()) {
            traduzida.gravavel = escopo_.PartilharTabela(0);
        }
        return traduzida;
    }

  private:
    // "*" and "table.*" as their columns.
    void DesdobrarItens() {
        for (const ItemSelecao& item : selecao_.itens) {
            if (item.expressao) {
                itens_.push_back({*item.expressao, item.apelido});
                continue;
            }
            const auto so =
                item.tabela.nome.empty() ? std::nullopt : escopo_.ProcurarTabela(item.tabela.nome);
            if (!item.tabela.nome.empty() && !so) {
                throw Erro(NumeroErro::ColunaDesconhecida,
                           "A consulta usa a coluna desconhecida \"" + item.tabela.nome + ".*\".");
            }
            for (std::size_t t = 0; t < escopo_.Quantas(); ++t) {
                if (so.value_or(t) == t) {
                    for (const Coluna& coluna : escopo_.TabelaEm(t).colunas) {
                        itens_.push_back(
                            {ColunaDe(escopo_.TabelaEm(t), coluna, item.tabela.posicao), ""});
                    }
                }
            }
        }
    }

    // What the query groups by, and the HAVING terms as the conditions on rows that they are, so
    // that an index can serve them.
    void DistribuirGrupos() {
        agregada_ = !selecao_.grupos.empty() || !selecao_.condicoesDosGrupos.empty() ||
                    std::ranges::any_of(itens_, [](const Item& item) {
                        return Expressoes::ContemSoma(item.expressao);
                    });
        for (const Expressao& grupo : selecao_.grupos) {
            AgruparPor(grupo);
        }
        for (const Expressao& condicao : selecao_.condicoesDosGrupos) {
            ExigirAgrupada(condicao);
            condicoes_.push_back(condicao);
        }
        for (const Expressao& condicao : condicoes_) {
            if (Expressoes::ContemSoma(condicao)) {
                LancarErroDeSintaxe(consulta_, condicao.posicao, "soma numa condição");
            }
        }
    }

    void AgruparPor(const Expressao& grupo) {
        const ExpressaoSql valor = expressoes_.Traduzir(grupo);
        agrupadas_.push_back(valor.sql);
        Juntar(grupos_, ", ", expressoes_.Chave(valor));
    }

    // In a grouped query, columns stand in sums or in what is grouped by.
    void ExigirAgrupada(const Expressao& expressao) const {
        if (!agregada_ || expressao.operacao == Operacao::Soma) {
            return;
        }
        const std::string sql = expressoes_.Traduzir(expressao).sql;
        if (Contem(agrupadas_, sql)) {
            return;
        }
        if (expressao.operacao == Operacao::Coluna) {
            throw Erro(NumeroErro::ForaDaAgregacao,
                       "A coluna \"" + expressao.nome +
                           "\" não faz parte do agrupamento nem de uma função de agregação.");
        }
        for (const Expressao& parte : expressao.partes) {
            ExigirAgrupada(parte);
        }
    }

    // a = b and b = 'text' make a = 'text', which an index on a can serve.
    void PropagarTextos() {
        const auto ehColuna = [](const Expressao& e) { return e.operacao == Operacao::Coluna; };
        std::vector<std::pair<ColunaAchada, const Expressao*>> conhecidas;
        std::vector<Expressao> novas;
        for (const Expressao& condicao : condicoes_) {
            if (condicao.operacao == Operacao::Igual && ehColuna(condicao.partes[0]) &&
                condicao.partes[1].operacao == Operacao::Texto) {
                conhecidas.emplace_back(escopo_.Exigir(condicao.partes[0]), &condicao.partes[1]);
            }
        }
        for (const Expressao& condicao : condicoes_) {
            if (condicao.operacao != Operacao::Igual ||
                !std::ranges::all_of(condicao.partes, ehColuna)) {
                continue;
            }
            for (const std::size_t lado : {0U, 1U}) {
                const ColunaAchada conhecida = escopo_.Exigir(condicao.partes[1 - lado]);
                for (const auto& [coluna, texto] : conhecidas) {
                    if (coluna == conhecida) {
                        Expressao nova{Operacao::Igual, condicao.posicao, {}, {}, {}};
                        nova.partes = {condicao.partes[lado], *texto};
                        novas.push_back(std::move(nova));
                    }
                }
            }
        }
        condicoes_.insert(condicoes_.end(), novas.begin(), novas.end());
    }

    // saida_: the tables that DISTINCTROW keeps in the rows; all of them in any other query.
    void MarcarSaida() {
        saida_.assign(escopo_.Quantas(), false);
        for (const Item& item : itens_) {
            expressoes_.MarcarTabelas(item.expressao, saida_);
        }
        for (const Expressao& chave : selecao_.ordem) {
            expressoes_.MarcarTabelas(chave, saida_);
        }
        if (!selecao_.linhasDistintas || agregada_ || !Contem(saida_, true)) {
            saida_.assign(escopo_.Quantas(), true);
        }
    }

    [[nodiscard]] std::string Tabelas(bool daSaida) const {
        std::string tabelas;
        for (std::size_t t = 0; t < escopo_.Quantas(); ++t) {
            if (saida_[t] == daSaida) {
                Juntar(tabelas, ", ", escopo_.TabelaEm(t).Sql());
            }
        }
        return tabelas;
    }

    // FROM and WHERE. A table that gives no column under DISTINCTROW stands, with every condition
    // on it, in one EXISTS, which stops at the first row that fits.
    [[nodiscard]] std::string Origens() const {
        std::string daSaida;
        std::string dasOutras;
        for (const Expressao& condicao : condicoes_) {
            std::vector<bool> lidas(escopo_.Quantas(), false);
            expressoes_.MarcarTabelas(condicao, lidas);
            bool soDaSaida = true;
            for (std::size_t t = 0; t < lidas.size(); ++t) {
                soDaSaida = soDaSaida && (!lidas[t] || saida_[t]);
            }
            Juntar(soDaSaida ? daSaida : dasOutras, " AND ", expressoes_.Condicao(condicao));
        }
        if (const std::string outras = Tabelas(false); !outras.empty()) {
            Juntar(daSaida, " AND ",
                   "EXISTS (SELECT 1 FROM " + outras + Clausula(" WHERE ", dasOutras) + ")");
        }
        return " FROM " + Tabelas(true) + Clausula(" WHERE ", daSaida);
    }

    [[nodiscard]] std::string Ordem() const {
        std::string ordem;
        for (const Expressao& chave : selecao_.ordem) {
            ExigirAgrupada(chave);
            Juntar(ordem, ", ", expressoes_.Chave(expressoes_.Traduzir(chave)));
        }
        for (const std::size_t t : Desempate()) {
            const std::string rowid = NomeSql(escopo_.TabelaEm(t).nome) + ".rowid";
            if (!escopo_.TabelaEm(t).temRowid || (agregada_ && grupos_.empty())) {
                continue;
            }
            Juntar(ordem, ", ", agregada_ ? "min(" + rowid + ")" : rowid);
            if (agregada_) {
                break;
            }
        }
        return ordem;
    }

    // The tables of the rows, in the order in which they decide between equal rows.
    [[nodiscard]] std::vector<std::size_t> Desempate() const {
        std::vector<std::size_t> tabelas;
        const auto juntar = [&](std::size_t t) {
            if (saida_[t] && !Contem(tabelas, t)) {
                tabelas.push_back(t);
            }
        };
        for (std::size_t i = 0; !selecao_.ordem.empty() && i < itens_.size(); ++i) {
            std::vector<bool> lidas(escopo_.Quantas(), false);
            expressoes_.MarcarTabelas(itens_[i].expressao, lidas);
            for (std::size_t t = 0; t < lidas.size(); ++t) {
                if (lidas[t]) {
                    juntar(t);
                }
            }
        }
        for (std::size_t t = 0; t < escopo_.Quantas(); ++t) {
            juntar(t);
        }
        return tabelas;
    }

    [[nodiscard]] ColunaSaida Saida(const Item& item, const ExpressaoSql& valor,
                                    std::size_t posicao) const {
        ColunaSaida saida;
        saida.nome = SemCaixa(item.apelido);
        saida.tipo = valor.tipo;
        if (valor.coluna) {
            const Tabela& tabela = escopo_.TabelaEm(valor.coluna->tabela);
            saida.tabela = tabela.nome;
            saida.coluna = escopo_.ColunaEm(*valor.coluna).nome;
            if (item.apelido.empty()) {
                saida.nome = escopo_.ColunaEm(*valor.coluna).nomeSemCaixa;
                saida.tabelaQualificadora = tabela.nomeSemCaixa;
            }
        } else if (item.apelido.empty()) {
            saida.nome = "expr" + std::to_string(1000 + posicao);
        }
        return saida;
    }

    [[nodiscard]] bool EhTabelaInteira() const {
        return escopo_.Quantas() == 1 && selecao_.itens.size() == 1 &&
               !selecao_.itens[0].expressao && condicoes_.empty() && !agregada_ &&
               selecao_.ordem.empty();
    }

    const Selecao& selecao_;
    std::string_view consulta_;
    Escopo escopo_;
    Expressoes expressoes_;
    std::vector<Expressao> condicoes_;  // all conditions on rows
    std::vector<Item> itens_;
    bool agregada_ = false;
    std::vector<std::string> agrupadas_;
    std::string grupos_;
    std::vector<bool> saida_;
};

}  // namespace

SelecaoSql Traduzir(const Selecao& selecao, Esquema& esquema, std::string_view consulta) {
    return TradutorSelecao(selecao, esquema, consulta).Traduzir();
}

ExclusaoSql Traduzir(const Exclusao& exclusao, Esquema& esquema) {
    const auto tabela = ExigirTabela(esquema, exclusao.tabela.nome);
    return {"DELETE FROM " + tabela->Sql(), tabela->esquema};
}

}  // namespace tarvo::sqlite
