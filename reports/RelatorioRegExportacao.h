#pragma once

#include <cstdint>
#include <string>

#include "data/Publico.h"
#include "document/Relatorio.h"

namespace tarvo {

// The export registrations of a declaration, down five columns a page: entry 16 of the selection
// list.
class TARVO_PUBLICO RelatorioRegExportacao final : public RelatorioDeclaracao {
  public:
    explicit RelatorioRegExportacao(const Ambiente& ambiente = {});
    ~RelatorioRegExportacao() override;

  private:
    void Desenhar(BancoDados& banco, const std::string& IE, std::int32_t NumeroDRQ) override;
    void ImprimirPagina(Recordset& identificacao, Recordset& registros);
};

}  // namespace tarvo
