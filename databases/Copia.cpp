// SPDX-License-Identifier: MIT
#include "databases/Copia.h"

#include <algorithm>
#include <optional>

#include "data/CodigosDeErros.h"
#include "data/Consultas.h"
#include "databases/sqlite/Alfabeto.h"
#include "databases/sqlite/Esquema.h"
#include "databases/sqlite/Tabelas.h"

namespace tarvo {

using namespace sqlite;

namespace {

bool Tem(const Tabela& tabela, std::string_view coluna) {
    return std::ranges::any_of(
        tabela.colunas, [&](const Coluna& uma) { return uma.nomeSemCaixa == SemCaixa(coluna); });
}

class Copia {
  public:
    Copia(const std::shared_ptr<Conexao>& de, DestinoDaCopia& para, const SelecaoDaCopia& selecao)
        : de_(de), para_(para), esquema_(de), selecao_(selecao) {}

    ResumoDaCopia Copiar() {
        ResumoDaCopia resumo;
        de_->Executar("BEGIN");
        for (const TabelaDoBanco& definicao : TabelasDoBanco()) {
            const auto tabela = esquema_.Procurar(definicao.nome);
            if (!tabela) {
                continue;
            }
            try {
                if (const auto linhas = CopiarTabela(definicao, *tabela)) {
                    ++resumo.tabelas;
                    resumo.linhas += *linhas;
                }
            } catch (const Erro& erro) {
                if (erro.Numero() == NumeroErro::Cancelado) {
                    throw;
                }
                throw Erro(erro.Numero(),
                           "Tabela \"" + std::string(definicao.nome) + "\": " + erro.Descricao());
            }
        }
        de_->Executar("COMMIT");
        return resumo;
    }

  private:
    // How many rows; nothing for a table without any of the columns.
    std::optional<std::size_t> CopiarTabela(const TabelaDoBanco& definicao, const Tabela& tabela) {
        auto colunas = definicao.Colunas();
        std::erase_if(colunas, [&](const ColunaDoBanco& uma) { return !Tem(tabela, uma.nome); });
        if (colunas.empty()) {
            return std::nullopt;
        }
        para_.Tabela(definicao, colunas);
        Instrucao leitura(de_, "SELECT " + NomesSql(colunas) + " FROM " + tabela.Sql() +
                                   Condicao(definicao, tabela) +
                                   (tabela.temRowid ? " ORDER BY rowid" : ""));
        std::size_t linhas = 0;
        for (; leitura.Passo(); ++linhas) {
            para_.Linha(leitura.Ponteiro());
        }
        para_.TerminarTabela();
        const bool escolhida =
            definicao.nome == "tblDRQ" || (definicao.nome == "tblContribuinte" && !selecao_.NroDRQ);
        if (linhas == 0 && escolhida && (selecao_.IE || selecao_.NroDRQ)) {
            throw Erro(NumeroErro::RegistroAtualAusente, "não há o que foi pedido.");
        }
        return linhas;
    }

    // Of the rows, those of the chosen declarations.
    std::string Condicao(const TabelaDoBanco& definicao, const Tabela& tabela) {
        if (!selecao_.IE && !selecao_.NroDRQ) {
            return "";
        }
        const std::string_view nome = definicao.nome;
        const auto declaracoes = esquema_.Procurar("tblDRQ");
        const auto ocorrencias = esquema_.Procurar("tblOcorrências");
        const bool temIE = declaracoes && Tem(*declaracoes, "IE");
        std::string escolhidas = "NroDRQ IS NOT NULL";
        if (selecao_.NroDRQ) {
            escolhidas += " AND NroDRQ = " + std::to_string(*selecao_.NroDRQ);
        }
        if (selecao_.IE && temIE) {
            escolhidas += " AND IE = " + TextoSql(*selecao_.IE) + " COLLATE NOCASE";
        }
        if (nome == "tblDRQ") {
            return " WHERE " + escolhidas;
        }
        if (nome == "tblContribuinte") {
            if (selecao_.IE) {
                return " WHERE IE = " + TextoSql(*selecao_.IE) + " COLLATE NOCASE";
            }
            return temIE ? " WHERE IE COLLATE NOCASE IN (SELECT IE FROM " + declaracoes->Sql() +
                               " WHERE " + escolhidas + ")"
                         : "";
        }
        const std::string numeros =
            declaracoes ? "SELECT NroDRQ FROM " + declaracoes->Sql() + " WHERE " + escolhidas : "0";
        if (Tem(tabela, "NroDRQ")) {
            return " WHERE NroDRQ IN (" + numeros + ")";
        }
        if (ocorrencias && definicao.dono == Dono::Subitem) {
            return " WHERE \"Código\" IN (SELECT \"Código\" FROM " + ocorrencias->Sql() +
                   " WHERE NroDRQ IN (" + numeros + "))";
        }
        return "";
    }

    const std::shared_ptr<Conexao>& de_;
    DestinoDaCopia& para_;
    Esquema esquema_;
    const SelecaoDaCopia& selecao_;
};

}  // namespace

ResumoDaCopia Copiar(const std::shared_ptr<Conexao>& de, DestinoDaCopia& para,
                     const SelecaoDaCopia& selecao) {
    return Copia(de, para, selecao).Copiar();
}

}  // namespace tarvo
