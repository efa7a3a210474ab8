// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>

#include "databases/sqlite/Conexao.h"

namespace tarvo::sqlite {

// A new database file in WAL mode, with what preencher puts into it, all in one transaction. The
// file appears once it is complete. See CriarBanco for the errors.
void CriarArquivo(const std::filesystem::path& arquivo,
                  const std::function<void(Conexao&)>& preencher);

// All tables of a declaration database, with their indexes.
void CriarTabelas(Conexao& conexao);

}  // namespace tarvo::sqlite
