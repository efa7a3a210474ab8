// SPDX-License-Identifier: MIT
#include "databases/postgresql/LeituraInteira.h"

#include "databases/sqlite/Abertura.h"
#include "databases/sqlite/Preenchimento.h"

namespace tarvo::postgresql {

std::shared_ptr<sqlite::Conexao> LerInteiras(Sessao& sessao,
                                             const std::vector<LinhasDaTabela>& linhas) {
    auto conexao = sqlite::AbrirTemporario();
    conexao->Executar("BEGIN");
    sessao.Executar("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY");
    {
        sqlite::Preenchimento preenchimento(conexao);
        for (const auto& [tabela, condicao] : linhas) {
            preenchimento.Tabela(tabela.definicao->nome, tabela.NomesDasColunas());
            LeitorDeCopia leitor(tabela.Tipos());
            sessao.CopiarDe(tabela.Selecao(condicao), [&](std::string_view pedaco) {
                leitor.Ler(pedaco,
                           [&](std::span<const Valor> valores) { preenchimento.Linha(valores); });
            });
        }
    }
    sessao.Executar("COMMIT");
    if (linhas.size() > 1) {
        CriarIndices(*conexao, sqlite::Indices::ComChaves);
    }
    conexao->Executar("COMMIT");
    conexao->ProibirEscrita();
    return conexao;
}

}  // namespace tarvo::postgresql
