// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "data/Publico.h"
#include "reports/RelatorioDeConsulta.h"

namespace tarvo {

class TabelaEmDesenho;

// The payments of a declaration in two groups, own operations and substitution tax, each with its
// total: entry 17 of the selection list. A payment without an amount ends Construir with error 94,
// after its line is drawn.
class TARVO_PUBLICO RelatorioPagamentos final : public RelatorioDeConsulta {
  public:
    explicit RelatorioPagamentos(const Ambiente& ambiente = {});

    // Draws a group's total line with its top-left corner at (x, y), cm, on the current page.
    // Error 6 when totOp is outside the range of Moeda.
    void AdicionarTotalOP(double x, double y, double totOp);

  private:
    [[nodiscard]] std::string Consulta(std::int32_t NumeroDRQ) const override;
    void ImprimirPaginas(BancoDados& banco, Recordset& identificacao,
                         Recordset& pagamentos) override;
    void ImprimirTitulosGrupo(TabelaEmDesenho& tabela, double y, int grupo);
    void ImprimirLinha(double y, Recordset& pagamento);
    void ImprimirTotal(double x, double y, double total);
};

}  // namespace tarvo
