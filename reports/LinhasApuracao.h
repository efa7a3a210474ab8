// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

#include "data/BancoDados.h"
#include "reports/TabelaDeTrabalho.h"

namespace tarvo {

// The lines of an assessment on their way into its work table. What is printed of an amount is
// rounded to two decimals; the amount itself stays exact.
class LinhasApuracao {
  public:
    // Empties the work table. opProprias: which of the declaration's sub-items are listed.
    LinhasApuracao(BancoDados& banco, std::string_view tabela, bool opProprias,
                   std::int32_t NumeroDRQ);

    void Rotulo(std::string_view campo, std::string_view rotulo);
    // A label with an amount inside its cell.
    void Componente(std::string_view rotulo, std::string_view valor);
    // A label and, under it, the sub-items of that item in the order of their codes.
    void Item(std::string_view item, std::string_view rotulo);
    // The sub-items alone, in the order in which they were stored.
    void Subitens(std::string_view item) { ListarSubitens(item, ""); }
    // A line with an amount, which is handed back.
    Moeda Total(std::string_view campo, std::string_view rotulo, std::string_view total,
                Moeda valor);

    // A field of the declaration's own row. Error 3021 when the declaration is missing.
    [[nodiscard]] Valor DaDeclaracao(std::string_view campo);
    // The same as an amount; error 94 when it is Null.
    [[nodiscard]] Moeda ExigirDaDeclaracao(std::string_view campo);

  private:
    void ListarSubitens(std::string_view item, std::string_view ordem);

    BancoDados& banco_;
    bool opProprias_;
    std::int32_t numeroDRQ_;
    TabelaDeTrabalho tabela_;
};

}  // namespace tarvo
