// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <span>

#include "data/TabelasDoBanco.h"
#include "databases/CopiarBanco.h"
#include "databases/sqlite/Conexao.h"
#include "databases/sqlite/Esquema.h"

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

// One copying, as one moment of the source sees it.
class Copia {
  public:
    Copia(std::shared_ptr<sqlite::Conexao> de, DestinoDaCopia& para, const SelecaoDaCopia& selecao)
        : de_(std::move(de)), para_(para), esquema_(de_), selecao_(selecao) {}

    ResumoDaCopia Copiar();

  private:
    std::optional<std::size_t> CopiarTabela(const TabelaDoBanco& definicao,
                                            const sqlite::Tabela& tabela);
    std::string Condicao(const TabelaDoBanco& definicao, const sqlite::Tabela& tabela);

    std::shared_ptr<sqlite::Conexao> de_;
    DestinoDaCopia& para_;
    sqlite::Esquema esquema_;
    const SelecaoDaCopia& selecao_;
};

}  // namespace tarvo
