#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "data/BancoDados.h"
#include "data/Publico.h"

struct sqlite3;

// The declaration database on SQLite: one file, one database, queries in the desktop engine's
// dialect.
namespace tarvo {

enum class ModoAbertura { LeituraEscrita, SomenteLeitura };

// Where the work tables that some reports refill live.
enum class TabelasDeTrabalho {
    NoBanco,   // in the database, visible to everyone who opens it
    Privadas,  // temporary tables of this connection that shadow the database's: the file is never
               // written, so that read-only files and several builds at once work
};

struct OpcoesAbertura {
    ModoAbertura modo = ModoAbertura::LeituraEscrita;
    TabelasDeTrabalho tabelasDeTrabalho = TabelasDeTrabalho::NoBanco;
};

// An open database. Thread rule of BancoDados: one thread at a time.
class TARVO_PUBLICO BancoSQLite : public BancoDados {
  public:
    // Opens an existing file. Errors: 3024 no such file, 70 no permission, 3343 not a database or
    // a damaged one, 3260 locked. Never creates a file.
    static std::unique_ptr<BancoSQLite> Abrir(const std::filesystem::path& arquivo,
                                              const OpcoesAbertura& opcoes = {});
    // Uses a connection that the host opened and keeps: it must stay open as long as this object.
    static std::unique_ptr<BancoSQLite> Adotar(
        sqlite3* conexao, TabelasDeTrabalho tabelasDeTrabalho = TabelasDeTrabalho::NoBanco);

    // Runs statements of SQLite's own dialect (example data, tests), all or none of them.
    virtual void ExecutarScript(std::string_view sql) = 0;
};

// Creates an empty declaration database; error 3204 when the file exists. On any error no file is
// left behind.
TARVO_PUBLICO void CriarBanco(const std::filesystem::path& arquivo);

}  // namespace tarvo
