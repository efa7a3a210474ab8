// SPDX-License-Identifier: MIT
#include <string>

#include "databases/sqlite/BancoSQLite.h"
#include "databases/sqlite/CriarArquivo.h"
#include "databases/sqlite/Preenchimento.h"
#include "databases/sqlite/Tabelas.h"

namespace tarvo {

using sqlite::Conexao;
using sqlite::NomeSql;

void sqlite::CriarTabelas(Conexao& conexao) {
    for (const auto tabelas : {TabelasDoBanco(), TabelasRefeitas()}) {
        for (const DefinicaoTabela& tabela : tabelas) {
            conexao.Executar("CREATE TABLE " + NomeSql(tabela.nome) + " (" +
                             std::string(tabela.colunas) + ")");
        }
    }
    CriarIndices(conexao, Indices::SemChaves);
}

void CriarBanco(const std::filesystem::path& arquivo, std::string_view script) {
    sqlite::CriarArquivo(arquivo, [&](Conexao& conexao) {
        sqlite::CriarTabelas(conexao);
        conexao.Executar(std::string(script));
    });
}

}  // namespace tarvo
