#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

#include "data/CodigosDeErros.h"
#include "databases/sqlite/BancoSQLite.h"
#include "databases/sqlite/Conexao.h"
#include "databases/sqlite/Tabelas.h"
#include "system/files/Arquivos.h"
#include "system/files/Descritor.h"

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

// The database while it is being made: a new file beside its destination, gone with this object.
class Rascunho {
  public:
    explicit Rascunho(const fs::path& destino) {
        for (int n = 0;; ++n) {
            arquivo_ = destino;
            arquivo_ += "." + std::to_string(getpid()) + "-" + std::to_string(n) + ".novo";
            const Descritor novo(
                open(arquivo_.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666));
            if (novo.Valor() >= 0) {
                return;
            }
            if (errno != EEXIST) {
                LancarErroDeArquivo(destino, errno);
            }
        }
    }
    ~Rascunho() {
        std::error_code ignorado;
        for (const char* sufixo : {"", "-wal", "-shm", "-journal"}) {
            fs::remove(fs::path(arquivo_) += sufixo, ignorado);
        }
    }
    Rascunho(const Rascunho&) = delete;
    Rascunho& operator=(const Rascunho&) = delete;
    [[nodiscard]] const fs::path& Arquivo() const { return arquivo_; }

    // A second name for the file, unless something bears it already; where a file cannot have two
    // names it is renamed.
    void Publicar(const fs::path& destino) const {
        std::error_code erro;
        fs::create_hard_link(arquivo_, destino, erro);
        if (erro == std::errc::file_exists || (erro && fs::exists(destino))) {
            LancarJaExiste(destino);
        }
        if (erro) {
            fs::rename(arquivo_, destino, erro);
        }
        if (erro) {
            LancarErroDeArquivo(destino, erro.value());
        }
    }

  private:
    fs::path arquivo_;
};

}  // namespace

void CriarBanco(const fs::path& arquivo, std::string_view script) {
    std::error_code ignorado;
    if (fs::exists(fs::symlink_status(arquivo, ignorado))) {
        LancarJaExiste(arquivo);
    }
    const Rascunho rascunho(arquivo);
    {
        sqlite3* db = nullptr;
        const int estado =
            sqlite3_open_v2(rascunho.Arquivo().c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
        std::unique_ptr<sqlite3, decltype(&sqlite3_close)> semDono(db, sqlite3_close);
        if (estado != SQLITE_OK) {
            sqlite::LancarErroSQLite(db, estado);
        }
        Conexao conexao(db, Conexao::Posse::Propria);
        static_cast<void>(semDono.release());
        conexao.Executar("PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL;" + Definicoes() +
                         "BEGIN;" + std::string(script) + "\n;COMMIT");
    }
    rascunho.Publicar(arquivo);
}

}  // namespace tarvo
