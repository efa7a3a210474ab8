// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "data/Publico.h"
#include "document/Relatorio.h"

namespace tarvo {

// A report of the rows that one query gives of a declaration, on pages headed by its taxpayer and
// declaration.
class TARVO_PUBLICO RelatorioDeConsulta : public RelatorioDeclaracao {
  protected:
    using RelatorioDeclaracao::RelatorioDeclaracao;

    void Desenhar(BancoDados& banco, const std::string& IE, std::int32_t NumeroDRQ) override;

  private:
    [[nodiscard]] virtual std::string Consulta(std::int32_t NumeroDRQ) const = 0;
    // Draws all pages on the new document; identificacao is at the row of taxpayer and declaration.
    virtual void ImprimirPaginas(BancoDados& banco, Recordset& identificacao,
                                 Recordset& linhas) = 0;
};

}  // namespace tarvo
