// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "data/Publico.h"
#include "reports/RelatorioDeConsulta.h"

namespace tarvo {

class TabelaEmDesenho;

// The export registrations of a declaration, down five columns a page: entry 16 of the selection
// list.
class TARVO_PUBLICO RelatorioRegExportacao final : public RelatorioDeConsulta {
  public:
    explicit RelatorioRegExportacao(const Ambiente& ambiente = {});

  private:
    [[nodiscard]] std::string Consulta(std::int32_t NumeroDRQ) const override;
    void ImprimirPaginas(BancoDados& banco, Recordset& identificacao,
                         Recordset& registros) override;
    void ImprimirRegistros(TabelaEmDesenho& tabela, Recordset& registros);
};

}  // namespace tarvo
