// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>

#include "databases/sqlite/BancoSQLite.h"
#include "databases/sqlite/Conexao.h"

namespace tarvo::sqlite {

// Opens an existing database file, for reading alone where it cannot be written. See
// BancoSQLite::Abrir for the errors.
std::shared_ptr<Conexao> AbrirArquivo(const std::filesystem::path& arquivo, ModoAbertura modo);

// An empty file, or one without a database yet, to be filled.
std::shared_ptr<Conexao> AbrirNovo(const std::filesystem::path& arquivo);
// An empty database in memory.
std::shared_ptr<Conexao> AbrirEmMemoria();

// An empty database that nobody else sees: in memory, and in a nameless file of the temporary
// folder (SQLITE_TMPDIR, TMPDIR) what of it grows beyond some megabytes.
std::shared_ptr<Conexao> AbrirTemporario();

// The engine over a connection of ours.
std::unique_ptr<BancoSQLite> AbrirSobre(std::shared_ptr<Conexao> conexao,
                                        TabelasDeTrabalho tabelasDeTrabalho);

}  // namespace tarvo::sqlite
