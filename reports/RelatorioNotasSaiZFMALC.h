// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "data/Publico.h"
#include "reports/RelatorioDeConsulta.h"

namespace tarvo {

class TabelaEmDesenho;

// The outgoing invoices to the free-trade zones, grouped by CFOP with subtotals and a total: entry
// 06 of the selection list. An invoice whose town or CFOP line is missing is not listed.
class TARVO_PUBLICO RelatorioNotasSaiZFMALC final : public RelatorioDeConsulta {
  public:
    explicit RelatorioNotasSaiZFMALC(const Ambiente& ambiente = {});

  private:
    [[nodiscard]] std::string Consulta(std::int32_t NumeroDRQ) const override;
    void ImprimirPaginas(BancoDados& banco, Recordset& identificacao, Recordset& grupos) override;
    void ImprimirTitulosGrupo(TabelaEmDesenho& tabela, double y, std::string_view CFOP);
    void ImprimirLinha(double y, Recordset& nota);
    void ImprimirSoma(double y, FuncaoDaLinha funcao, std::string_view rotulo, Moeda soma);
};

}  // namespace tarvo
