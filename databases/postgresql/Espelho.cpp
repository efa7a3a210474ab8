// SPDX-License-Identifier: MIT
#include "databases/postgresql/Espelho.h"

#include <sqlite3.h>

#include "databases/sqlite/Abertura.h"

namespace tarvo::postgresql {

namespace {

using namespace sqlite;

void LerLinha(std::vector<Valor>& valores, const TabelaDoServidor& tabela, const Resultado& linhas,
              int linha) {
    valores.clear();
    for (int c = 0; c < static_cast<int>(tabela.colunas.size()); ++c) {
        if (PQgetisnull(linhas.get(), linha, c) == 1) {
            valores.emplace_back(Nulo{});
            continue;
        }
        valores.push_back(LerValor(BytesEm(linhas, linha, c),
                                   tabela.colunas[static_cast<std::size_t>(c)].pedida.tipo));
    }
}

}  // namespace

Espelho::Espelho(const CopiaPrivada& modelo, const Esquema& esquema, Acompanhante* quem)
    : conexao_(CopiaPrivada::ConectarOutra(modelo)),
      banco_(AbrirSobre(conexao_, TabelasDeTrabalho::Privadas)) {
    conexao_->ProibirEscrita();  // to the engine: what is written is the server's
    conexao_->Acompanhar(quem);
    for (const TabelaDoServidor& tabela : esquema.Tabelas()) {
        const std::string_view nome = tabela.definicao->nome;
        Destino destino;
        destino.dono = tabela.definicao->dono;
        destino.insercao =
            std::make_unique<Insercao>(conexao_, *tabela.definicao, tabela.Definicoes());
        destino.exclusao = std::make_unique<Instrucao>(conexao_, "DELETE FROM " + NomeSql(nome));
        destinos_.emplace(nome, std::move(destino));
    }
}

bool Espelho::EmLeitura() const {
    sqlite3* const db = conexao_->Db();
    for (auto* um = sqlite3_next_stmt(db, nullptr); um != nullptr; um = sqlite3_next_stmt(db, um)) {
        if (sqlite3_stmt_busy(um) != 0) {
            return true;
        }
    }
    return false;
}

void Espelho::Esvaziar(Dono dono) {
    for (auto& [nome, destino] : destinos_) {
        if (destino.dono == dono && destino.temLinhas) {
            destino.exclusao->Executar();
            destino.temLinhas = false;
        }
    }
}

void Espelho::Encher(const TabelaDoServidor& tabela, const Resultado& linhas) {
    Destino& destino = destinos_.at(tabela.definicao->nome);
    const int quantas = PQntuples(linhas.get());
    destino.temLinhas = destino.temLinhas || quantas > 0;
    for (int i = 0; i < quantas; ++i) {
        LerLinha(valores_, tabela, linhas, i);
        destino.insercao->Linha(valores_);
    }
}

std::set<std::int32_t> Espelho::Codigos() const {
    std::set<std::int32_t> codigos;
    Instrucao leitura(conexao_, "SELECT \"Código\" FROM \"tblOcorrências\"");
    while (leitura.Passo()) {
        codigos.insert(sqlite3_column_int(leitura.Ponteiro(), 0));
    }
    return codigos;
}

std::shared_ptr<const CopiaPrivada> Modelo(const Esquema& esquema,
                                           std::span<const Resultado> comuns) {
    return CopiaPrivada::Preencher(CopiaPrivada::Lugar::Memoria, [&](Preenchimento& destino) {
        std::vector<Valor> valores;
        auto linhas = comuns.begin();
        for (const TabelaDoServidor& tabela : esquema.Tabelas()) {
            destino.Tabela(tabela.definicao->nome, tabela.NomesDasColunas());
            if (tabela.definicao->dono != Dono::Todos) {
                continue;
            }
            for (int i = 0; i < PQntuples(linhas->get()); ++i) {
                LerLinha(valores, tabela, *linhas, i);
                destino.Linha(valores);
            }
            ++linhas;
        }
    });
}

}  // namespace tarvo::postgresql
