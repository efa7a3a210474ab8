// SPDX-License-Identifier: MIT
#include "databases/CopiarBanco.h"

#include <sqlite3.h>

#include <optional>

#include "databases/Copia.h"
#include "databases/DestinoServidor.h"
#include "databases/postgresql/Endereco.h"
#include "databases/sqlite/CriarArquivo.h"
#include "databases/sqlite/Preenchimento.h"
#include "databases/sqlite/Tabelas.h"

namespace tarvo {

namespace {

using namespace sqlite;

class DestinoArquivo final : public DestinoDaCopia {
  public:
    explicit DestinoArquivo(Conexao& para) : para_(&para, [](Conexao*) {}) {}

    void Tabela(const TabelaDoBanco& tabela, std::span<const ColunaDoBanco> colunas) override {
        para_->Executar(CriacaoSql(tabela, colunas));
        escrita_.emplace(para_, InsercaoSql(tabela, colunas));
    }

    void Linha(sqlite3_stmt* linha) override {
        for (int c = 0; c < sqlite3_column_count(linha); ++c) {
            para_->Conferir(
                sqlite3_bind_value(escrita_->Ponteiro(), c + 1, sqlite3_column_value(linha, c)));
        }
        escrita_->Executar();
    }

    void TerminarTabela() override { escrita_.reset(); }

  private:
    std::shared_ptr<Conexao> para_;
    std::optional<Instrucao> escrita_;
};

ResumoDaCopia CopiarParaArquivo(const std::shared_ptr<Conexao>& origem,
                                const std::filesystem::path& destino, const SelecaoDaCopia& selecao,
                                Acompanhante* quem) {
    ResumoDaCopia resumo;
    CriarArquivo(destino, [&](Conexao& para) {
        para.Acompanhar(quem);
        DestinoArquivo arquivo(para);
        resumo = Copiar(origem, arquivo, selecao);
        for (const TabelaDoBanco& tabela : TabelasRefeitas()) {
            para.Executar(CriacaoSql(tabela, tabela.Colunas()));
        }
        CriarIndices(para, Indices::SemChaves);
    });
    return resumo;
}

ResumoDaCopia CopiarParaServidor(const std::shared_ptr<Conexao>& origem,
                                 const std::string& endereco, const SelecaoDaCopia& selecao,
                                 Acompanhante* quem) {
    DestinoServidor servidor(endereco, DestinoServidor::Tabelas::Vazias, quem);
    ResumoDaCopia resumo = Copiar(origem, servidor, selecao);
    servidor.Confirmar();
    resumo.avisos = servidor.Avisos();
    return resumo;
}

}  // namespace

ResumoDaCopia CopiarBanco(const OrigemBanco& origem, const std::filesystem::path& destino,
                          const SelecaoDaCopia& selecao) {
    Acompanhante* const quem = origem.QuemAcompanha();
    if (postgresql::EhEndereco(destino.string())) {
        return CopiarParaServidor(origem.Conectar(selecao), destino.string(), selecao, quem);
    }
    return CopiarParaArquivo(origem.Conectar(selecao), destino, selecao, quem);
}

}  // namespace tarvo
