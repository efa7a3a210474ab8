// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "data/BancoDados.h"
#include "data/OpcoesAbertura.h"
#include "data/Publico.h"

struct sqlite3;

// The declaration database on SQLite: one file, one database, queries in the desktop engine's
// dialect.
namespace tarvo {

// An open database. Thread rule of BancoDados: one thread at a time. Recordsets and queries made
// from it share its connection and may outlive it; the last of them closes the file.
class TARVO_PUBLICO BancoSQLite : public BancoDados {
  public:
    // Opens an existing file. Errors: 3024 no such file, 70 no permission, 3343 not a database or
    // a damaged one, 75 a journal beside it that is no regular file, 3260 locked (after two
    // seconds of waiting). Never creates a database. A file that cannot be written, or whose
    // folder cannot, opens for reading all the same; writing to it is error 3027.
    static std::unique_ptr<BancoSQLite> Abrir(const std::filesystem::path& arquivo,
                                              const OpcoesAbertura& opcoes = {});
    // Uses a connection that the host opened and keeps: it must stay open as long as this object
    // and its recordsets. Of it only functions and a collation, all named tarvo_*, are registered
    // and, for private work tables, temporary tables made, which go with this object. Error 91
    // for nullptr.
    static std::unique_ptr<BancoSQLite> Adotar(
        sqlite3* conexao, TabelasDeTrabalho tabelasDeTrabalho = TabelasDeTrabalho::NoBanco);

    // Runs statements of SQLite's own dialect (example data, tests), all or none of them. Errors:
    // 3075 for a faulty statement, 3219 for a broken constraint, 3027.
    virtual void ExecutarScript(std::string_view sql) = 0;
};

// For a program that reads with several threads at once, called before the first database is open:
// SQLite then keeps no account of its memory, which would make all threads wait for each other. For
// the whole process, so not the library's to decide.
TARVO_PUBLICO void PrepararParaVariosFios();

// Creates a declaration database, in WAL mode: empty, or filled by a script of SQLite's dialect.
// The file appears once it is complete. Errors: 3204 the file exists, 76 no such folder, 70 no
// permission, 61 no space. On any error no file is left behind.
TARVO_PUBLICO void CriarBanco(const std::filesystem::path& arquivo, std::string_view script = {});

}  // namespace tarvo
