// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "data/Publico.h"
#include "reports/RelatorioDeConsulta.h"

namespace tarvo {

struct DescricaoInterestad;

// The interstate operations of a declaration summed per state, in the order of the states' names,
// with a total row: the one design of entries 04 and 05. From 2002 on with the tax column.
class TARVO_PUBLICO RelatorioInterestad : public RelatorioDeConsulta {
  protected:
    RelatorioInterestad(const DescricaoInterestad& descricao, const Ambiente& ambiente);

  private:
    [[nodiscard]] std::string Consulta(std::int32_t NumeroDRQ) const override;
    void ImprimirPaginas(BancoDados& banco, Recordset& identificacao, Recordset& estados) override;
    const DescricaoInterestad& descricao_;
};

}  // namespace tarvo
