// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/Publico.h"
#include "reports/RelatorioDeTabela.h"

namespace tarvo {

struct RegimeApuracao;
struct TipoApuracao;

// The ICMS assessment of one declaration: debits, credits and balances, item by item.
//
// Errors of Construir leave the lines so far in the work table: 3021 for a missing declaration and
// 94 for a Null in an amount that must be there, when the line that needs it is reached.
class TARVO_PUBLICO RelatorioApuracao : public RelatorioDeTabela {
  protected:
    RelatorioApuracao(const TipoApuracao& tipo, const Ambiente& ambiente);

    // One of the summed fields, 51, 52, 53, 56, 57 and 58, as printed ("1.234,56"): "0,00" when
    // there is nothing to add up, the empty text without a database. Error 5 for another number.
    [[nodiscard]] std::string Campo(int numero, BancoDados* banco, std::int32_t NumeroDRQ) const;

  private:
    void Montar(BancoDados& banco, std::int32_t NumeroDRQ) override;
    void ImprimirLinha(Recordset& linha, Recordset& identificacao, double y) override;

    [[nodiscard]] const RegimeApuracao& LerRegime(BancoDados& banco, std::int32_t NumeroDRQ) const;
    [[nodiscard]] Moeda SomaDosCFOPs(BancoDados& banco, std::string_view grupos,
                                     std::int32_t NumeroDRQ) const;

    const TipoApuracao& tipo_;
};

}  // namespace tarvo
