#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

#include "data/CodigosDeErros.h"
#include "platform/sqlite/BancoSQLite.h"
#include "platform/sqlite/Conexao.h"
#include "platform/sqlite/Tabelas.h"

namespace tarvo {

namespace {

namespace fs = std::filesystem;

std::string Definicoes() {
    std::string sql = "BEGIN;";
    for (const auto tabelas : {TabelasDoBanco(), TabelasRefeitas()}) {
        for (const DefinicaoTabela& tabela : tabelas) {
            sql += "CREATE TABLE " + Nome(tabela.nome) + " (" + std::string(tabela.colunas) + ");";
            if (!tabela.indice.empty()) {
                sql += "CREATE INDEX " +
                       Nome("idx" + std::string(tabela.nome) + std::string(tabela.indice)) +
                       " ON " + Nome(tabela.nome) + " (" + Nome(tabela.indice) + ");";
            }
        }
    }
    // Finds, of all declarations, those with a CFOP: see the queries on tblZFM_ALC.
    return sql +
           "CREATE INDEX \"idxtblDetalhesCFOPsCFOP\" ON \"tblDetalhesCFOPs\" (\"CFOP\");"
           "COMMIT;";
}

[[noreturn]] void LancarNaoCriado(const fs::path& arquivo, int codigo) {
    const std::string onde = "Não foi possível criar \"" + arquivo.string() + "\": ";
    switch (codigo) {
        case ENOENT:
        case ENOTDIR:
            throw Erro(NumeroErro::CaminhoNaoEncontrado, onde + "a pasta não existe.");
        case EACCES:
        case EPERM:
        case EROFS:
            throw Erro(NumeroErro::PermissaoNegada, onde + "permissão negada.");
        case ENOSPC:
        case EDQUOT:
            throw Erro(NumeroErro::DiscoCheio, onde + "disco cheio.");
        default:
            throw Erro(NumeroErro::ErroDispositivo,
                       onde + std::generic_category().message(codigo) + ".");
    }
}

[[noreturn]] void LancarJaExiste(const fs::path& arquivo) {
    throw Erro(NumeroErro::BancoJaExiste, "O arquivo \"" + arquivo.string() + "\" já existe.");
}

// The database while it is being made: a new file beside its destination, gone with this object.
class Rascunho {
  public:
    explicit Rascunho(const fs::path& destino) {
        int descritor = -1;
        for (int n = 0; descritor < 0; ++n) {
            arquivo_ = destino;
            arquivo_ += "." + std::to_string(getpid()) + "-" + std::to_string(n) + ".novo";
            descritor = open(arquivo_.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
            if (descritor < 0 && errno != EEXIST) {
                LancarNaoCriado(destino, errno);
            }
        }
        close(descritor);
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
            LancarNaoCriado(destino, erro.value());
        }
    }

  private:
    fs::path arquivo_;
};

}  // namespace

void CriarBanco(const fs::path& arquivo) {
    std::error_code ignorado;
    if (fs::exists(fs::symlink_status(arquivo, ignorado))) {
        LancarJaExiste(arquivo);
    }
    const Rascunho rascunho(arquivo);
    {
        sqlite3* db = nullptr;
        const int estado =
            sqlite3_open_v2(rascunho.Arquivo().c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
        Conexao conexao(db, Conexao::Posse::Propria);
        if (estado != SQLITE_OK) {
            LancarErroSQLite(db);
        }
        conexao.Executar("PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL;" + Definicoes());
    }
    rascunho.Publicar(arquivo);
}

}  // namespace tarvo
