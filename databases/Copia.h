// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <span>

#include "data/TabelasDoBanco.h"
#include "databases/CopiarBanco.h"
#include "databases/sqlite/Conexao.h"

namespace tarvo {

// Where the rows of a copy go.
class DestinoDaCopia {
  public:
    virtual ~DestinoDaCopia() = default;
    // Begins a table, of which the source has these columns.
    virtual void Tabela(const TabelaDoBanco& tabela, std::span<const ColunaDoBanco> colunas) = 0;
    // Its next row: the statement's current one, those columns.
    virtual void Linha(sqlite3_stmt* linha) = 0;
    virtual void TerminarTabela() {}
};

// Copies the chosen declarations, as one moment of the source sees them.
ResumoDaCopia Copiar(const std::shared_ptr<sqlite::Conexao>& de, DestinoDaCopia& para,
                     const SelecaoDaCopia& selecao);

}  // namespace tarvo
