#include <sqlite3.h>

#include <string>
#include <system_error>

#include "data/CodigosDeErros.h"
#include "data/ObjetoDeC.h"
#include "databases/sqlite/BancoSQLite.h"
#include "databases/sqlite/Conexao.h"
#include "databases/sqlite/Tabelas.h"
#include "system/files/Arquivos.h"
#include "system/files/PastaDeEspera.h"

namespace tarvo {

namespace {

namespace fs = std::filesystem;
using sqlite::Conexao;
using sqlite::DefinicaoTabela;
using sqlite::NomeSql;

std::string Definicoes() {
    std::string sql = "BEGIN;";
    for (const auto tabelas : {sqlite::TabelasDoBanco(), sqlite::TabelasRefeitas()}) {
        for (const DefinicaoTabela& tabela : tabelas) {
            sql +=
                "CREATE TABLE " + NomeSql(tabela.nome) + " (" + std::string(tabela.colunas) + ");";
            if (!tabela.indice.empty()) {
                sql += "CREATE INDEX " +
                       NomeSql("idx" + std::string(tabela.nome) + std::string(tabela.indice)) +
                       " ON " + NomeSql(tabela.nome) + " (" + NomeSql(tabela.indice) + ");";
            }
        }
    }
    // Finds, of all declarations, those with a CFOP: see the queries on tblZFM_ALC.
    return sql +
           "CREATE INDEX \"idxtblDetalhesCFOPsCFOP\" ON \"tblDetalhesCFOPs\" (\"CFOP\");"
           "COMMIT;";
}

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

void CriarBanco(const fs::path& arquivo, std::string_view script) {
    std::error_code ignorado;
    if (fs::exists(fs::symlink_status(arquivo, ignorado))) {
        LancarJaExiste(arquivo);
    }
    const auto espera =
        PastaDeEspera::Nova(arquivo.has_parent_path() ? arquivo.parent_path() : fs::path("."));
    const fs::path novo = espera->Caminho() / "novo";
    GravarArquivo(novo, "");
    {
        sqlite3* db = nullptr;
        const int estado = sqlite3_open_v2(novo.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
        ObjetoDeC<sqlite3_close> semDono(db);
        if (estado != SQLITE_OK) {
            sqlite::LancarErroSQLite(db, estado);
        }
        Conexao conexao(db, Conexao::Posse::Propria);
        static_cast<void>(semDono.release());
        conexao.Executar("PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL;" + Definicoes() +
                         "BEGIN;" + std::string(script) + "\n;COMMIT");
    }
    Publicar(novo, arquivo);
}

}  // namespace tarvo
