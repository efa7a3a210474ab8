// SPDX-License-Identifier: MIT
#include "databases/sqlite/CriarArquivo.h"

#include <string>
#include <system_error>

#include "data/CodigosDeErros.h"
#include "databases/sqlite/Abertura.h"
#include "databases/sqlite/Preenchimento.h"
#include "databases/sqlite/Tabelas.h"
#include "system/files/Arquivos.h"
#include "system/files/PastaDeEspera.h"

namespace tarvo::sqlite {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void LancarJaExiste(const fs::path& arquivo) {
    throw Erro(NumeroErro::BancoJaExiste, "O arquivo \"" + arquivo.string() + "\" já existe.");
}

// Gives the file a second name, unless something bears it already; where a file cannot have two
// names it is renamed.
void Publicar(const fs::path& pronto, const fs::path& destino) {
    std::error_code erro;
    fs::create_hard_link(pronto, destino, erro);
    if (erro == std::errc::file_exists || (erro && fs::exists(destino))) {
        LancarJaExiste(destino);
    }
    if (erro) {
        fs::rename(pronto, destino, erro);
    }
    if (erro) {
        LancarErroDeArquivo(destino, erro.value());
    }
}

}  // namespace

void CriarArquivo(const fs::path& arquivo, const std::function<void(Conexao&)>& preencher) {
    std::error_code ignorado;
    if (fs::exists(fs::symlink_status(arquivo, ignorado))) {
        LancarJaExiste(arquivo);
    }
    const auto espera =
        PastaDeEspera::Nova(arquivo.has_parent_path() ? arquivo.parent_path() : fs::path("."));
    const fs::path novo = espera->Caminho() / "novo";
    GravarArquivo(novo, "");
    {
        const auto conexao = AbrirNovo(novo);
        conexao->Executar("PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL; BEGIN");
        preencher(*conexao);
        conexao->Executar("COMMIT");
    }
    Publicar(novo, arquivo);
}

void CriarTabelas(Conexao& conexao) {
    for (const auto tabelas : {TabelasDoBanco(), TabelasRefeitas()}) {
        for (const TabelaDoBanco& tabela : tabelas) {
            conexao.Executar(CriacaoSql(tabela, tabela.Colunas()));
        }
    }
    CriarIndices(conexao, Indices::SemChaves);
}

}  // namespace tarvo::sqlite

void tarvo::CriarBanco(const std::filesystem::path& arquivo, std::string_view script) {
    sqlite::CriarArquivo(arquivo, [&](sqlite::Conexao& conexao) {
        sqlite::CriarTabelas(conexao);
        conexao.Executar(std::string(script));
    });
}
