// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "document/TabelasDoDocumento.h"

namespace tarvo {

struct DocumentoPronto;
class SelecaoDeCelulas;

// The tables of a document that is shown, and which of them its user means.
class TabelasDaPrevia {
  public:
    // The document outlives the object.
    explicit TabelasDaPrevia(const DocumentoPronto& documento);

    [[nodiscard]] std::span<const TabelaDoDocumento> Todas() const { return tabelas_; }
    // The one with most of the selected cells or, when none is selected, of those where the user
    // has clicked last, else of that page (from 0). Null where there is no table at all.
    [[nodiscard]] const TabelaDoDocumento* Escolhida(const SelecaoDeCelulas& selecao,
                                                     int pagina) const;

  private:
    [[nodiscard]] const TabelaDoDocumento* Com(const std::vector<std::size_t>& celulas) const;

    const DocumentoPronto& documento_;
    std::vector<TabelaDoDocumento> tabelas_;
    std::vector<std::size_t> tabelaDoElemento_;  // index, or the number of tables for none
};

}  // namespace tarvo
