// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/TabelasDoBanco.h"
#include "data/Valor.h"
#include "databases/sqlite/Celula.h"
#include "databases/sqlite/Conexao.h"

// Rows from elsewhere into an empty SQLite database.
namespace tarvo::sqlite {

// Adds rows to some columns of a table, again and again. Values are converted to the columns' types
// by the rules of the field readers; one that does not convert is kept as it is and is error 3421
// when a report reads it.
class Insercao {
  public:
    // colunas: of that table.
    Insercao(const std::shared_ptr<Conexao>& conexao, const TabelaDoBanco& tabela,
             std::span<const ColunaDoBanco> colunas);
    // A value for each of the columns, in their order; error 3219 for another number.
    void Linha(std::span<const Valor> valores);

  private:
    std::shared_ptr<Conexao> conexao_;
    std::string_view tabela_;
    std::vector<TipoColuna> tipos_;
    Instrucao insercao_;
};

// Makes the declaration tables that a source has, with just the columns that it has, and takes its
// rows in their order, values as Insercao does. Tables have no keys: a source's doubled or missing
// ones are its own.
class Preenchimento {
  public:
    explicit Preenchimento(std::shared_ptr<Conexao> conexao) : conexao_(std::move(conexao)) {}

    // Begins a table, the rows that follow are its. Names are found without regard to case. Errors:
    // 3078 for a table that the schema does not have, 3061 for such a column, 3219 for one that was
    // named before.
    void Tabela(std::string_view nome, std::span<const std::string> colunas);
    // As many values as the table has columns, in their order; error 3219 otherwise.
    void Linha(std::span<const Valor> valores);

  private:
    std::shared_ptr<Conexao> conexao_;
    std::optional<Insercao> insercao_;
};

// The indexes that the reports' queries need, on the columns that are there; with those of the
// keys where the tables have been made without.
enum class Indices { SemChaves, ComChaves };
void CriarIndices(Conexao& conexao, Indices quais);

}  // namespace tarvo::sqlite
