#include "databases/CopiarBanco.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <vector>

#include "data/CodigosDeErros.h"
#include "data/Consultas.h"
#include "databases/sqlite/Alfabeto.h"
#include "databases/sqlite/BancoSQLite.h"
#include "databases/sqlite/CriarArquivo.h"
#include "databases/sqlite/Esquema.h"
#include "databases/sqlite/Preenchimento.h"
#include "databases/sqlite/Tabelas.h"

namespace tarvo {

namespace {

using namespace sqlite;

class Copia {
  public:
    Copia(std::shared_ptr<Conexao> de, Conexao& para, const SelecaoDaCopia& selecao)
        : de_(std::move(de)), para_(&para, [](Conexao*) {}), esquema_(de_), selecao_(selecao) {}

    ResumoDaCopia Copiar() {
        // One moment of the source.
        de_->Executar("BEGIN");
        for (const DefinicaoTabela& tabela : TabelasDoBanco()) {
            try {
                CopiarTabela(tabela);
            } catch (const Erro& erro) {
                throw Erro(erro.Numero(),
                           "Tabela \"" + std::string(tabela.nome) + "\": " + erro.Descricao());
            }
        }
        de_->Executar("COMMIT");
        return resumo_;
    }

  private:
    void CopiarTabela(const DefinicaoTabela& definicao) {
        const auto tabela = esquema_.Procurar(definicao.nome);
        if (!tabela) {
            return;
        }
        std::string criacao;
        std::string nomes;
        std::string parametros;
        const auto doEsquema = ColunasDe(definicao);
        std::size_t presentes = 0;
        for (const DefinicaoColuna& coluna : doEsquema) {
            if (Tem(*tabela, coluna.nome)) {
                const char* const virgula = presentes++ == 0 ? "" : ", ";
                criacao += virgula + coluna.definicao;
                nomes += virgula + NomeSql(coluna.nome);
                parametros += std::string(virgula) + "?";
            }
        }
        if (presentes == 0) {
            return;
        }
        if (presentes == doEsquema.size()) {
            criacao = definicao.colunas;
        }
        para_->Executar("CREATE TABLE " + NomeSql(definicao.nome) + " (" + criacao + ")");
        CopiarLinhas(definicao, *tabela, nomes,
                     "INSERT INTO " + NomeSql(definicao.nome) + " (" + nomes + ") VALUES (" +
                         parametros + ")");
        ++resumo_.tabelas;
    }

    void CopiarLinhas(const DefinicaoTabela& definicao, const Tabela& tabela,
                      const std::string& nomes, const std::string& insercao) {
        Instrucao leitura(de_, "SELECT " + nomes + " FROM " + tabela.Sql() +
                                   Condicao(definicao.nome, tabela) +
                                   (tabela.temRowid ? " ORDER BY rowid" : ""));
        Instrucao escrita(para_, insercao);
        std::size_t linhas = 0;
        for (; leitura.Passo(); ++linhas) {
            for (int c = 0; c < sqlite3_column_count(leitura.Ponteiro()); ++c) {
                para_->Conferir(sqlite3_bind_value(escrita.Ponteiro(), c + 1,
                                                   sqlite3_column_value(leitura.Ponteiro(), c)));
            }
            escrita.Executar();
        }
        const bool escolhida =
            definicao.nome == "tblDRQ" || (definicao.nome == "tblContribuinte" && !selecao_.NroDRQ);
        if (linhas == 0 && escolhida && (selecao_.IE || selecao_.NroDRQ)) {
            throw Erro(NumeroErro::RegistroAtualAusente, "não há o que foi pedido.");
        }
        resumo_.linhas += linhas;
    }

    // Of the rows, those of the chosen declarations.
    std::string Condicao(std::string_view nome, const Tabela& tabela) {
        if (!selecao_.IE && !selecao_.NroDRQ) {
            return "";
        }
        constexpr std::array DaOcorrencia{"tblIEsRemetente", "tblRecibosCredito",
                                          "tblIESubstituido", "tblIESubstituto"};
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
        if (ocorrencias && std::ranges::find(DaOcorrencia, nome) != DaOcorrencia.end()) {
            return " WHERE \"Código\" IN (SELECT \"Código\" FROM " + ocorrencias->Sql() +
                   " WHERE NroDRQ IN (" + numeros + "))";
        }
        return "";
    }

    static bool Tem(const Tabela& tabela, std::string_view coluna) {
        return std::ranges::any_of(tabela.colunas, [&](const Coluna& uma) {
            return uma.nomeSemCaixa == SemCaixa(coluna);
        });
    }

    std::shared_ptr<Conexao> de_;
    std::shared_ptr<Conexao> para_;
    Esquema esquema_;
    const SelecaoDaCopia& selecao_;
    ResumoDaCopia resumo_;
};

}  // namespace

ResumoDaCopia CopiarBanco(const OrigemBanco& origem, const std::filesystem::path& destino,
                          const SelecaoDaCopia& selecao) {
    ResumoDaCopia resumo;
    CriarArquivo(destino, [&](Conexao& para) {
        resumo = Copia(origem.Conectar(), para, selecao).Copiar();
        for (const DefinicaoTabela& tabela : TabelasRefeitas()) {
            para.Executar("CREATE TABLE " + NomeSql(tabela.nome) + " (" +
                          std::string(tabela.colunas) + ")");
        }
        CriarIndices(para, Indices::SemChaves);
    });
    return resumo;
}

}  // namespace tarvo
