// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <memory>

#include "data/OpcoesAbertura.h"
#include "databases/sqlite/BancoSQLite.h"
#include "databases/sqlite/Conexao.h"
#include "databases/sqlite/Preenchimento.h"

namespace tarvo::sqlite {

// A filled database that nobody else sees, complete and never written again: any number of
// connections, of any threads, read the same bytes. They keep it alive.
class CopiaPrivada {
  public:
    // In memory, or in a temporary file that has no name and that only this user may read.
    enum class Lugar { Memoria, Arquivo };

    // Runs the filling; what it raises leaves nothing behind. Error 61 when the temporary folder
    // (TMPDIR) is full.
    static std::shared_ptr<const CopiaPrivada> Preencher(
        Lugar lugar, const std::function<void(Preenchimento&)>& preencher);
    virtual ~CopiaPrivada() = default;
    CopiaPrivada(const CopiaPrivada&) = delete;
    CopiaPrivada& operator=(const CopiaPrivada&) = delete;

    // A connection that reads the copy and writes nothing to it.
    static std::shared_ptr<Conexao> Conectar(std::shared_ptr<const CopiaPrivada> copia);
    // A connection to a copy of the copy in memory, its own to be written to.
    static std::shared_ptr<Conexao> ConectarOutra(const CopiaPrivada& copia);
    // The first as a database. Its work tables are its own.
    static std::unique_ptr<BancoSQLite> Abrir(std::shared_ptr<const CopiaPrivada> copia);

  protected:
    CopiaPrivada() = default;
    // The database's pages.
    unsigned char* bytes_ = nullptr;
    std::size_t tamanho_ = 0;
};

}  // namespace tarvo::sqlite
