// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "data/BancoDados.h"

namespace tarvo {

// One text of a work-table row; columns without one stay Null.
struct ColunaTexto {
    std::string_view nome;
    std::optional<std::string_view> texto;
};

// A work table while it is being refilled: it holds the printed lines of one report's last build,
// of whatever declaration. Used within BancoDados::RefazerTabela, which keeps the lines so far when
// the report ends with an error. Uses the database that it was made with; does not outlive it.
class TabelaDeTrabalho {
  public:
    // Deletes the rows of all declarations and opens the table for appending.
    TabelaDeTrabalho(BancoDados& banco, std::string_view nome, std::int32_t NumeroDRQ);

    void Acrescentar(std::span<const ColunaTexto> colunas);
    void Acrescentar(std::initializer_list<ColunaTexto> colunas) {
        Acrescentar(std::span(colunas.begin(), colunas.size()));
    }

  private:
    std::int32_t numeroDRQ_;
    std::unique_ptr<Recordset> linhas_;
};

}  // namespace tarvo
