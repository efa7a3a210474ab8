#pragma once

#include <filesystem>
#include <memory>

#include "databases/sqlite/BancoSQLite.h"
#include "databases/sqlite/Conexao.h"

namespace tarvo::sqlite {

// Opens an existing database file, for reading alone where it cannot be written. See
// BancoSQLite::Abrir for the errors.
std::shared_ptr<Conexao> AbrirArquivo(const std::filesystem::path& arquivo, ModoAbertura modo);

}  // namespace tarvo::sqlite
