// SPDX-License-Identifier: MIT
#pragma once

#include "data/Publico.h"
#include "document/Ambiente.h"

namespace tarvo {

// Reviews each report of the catalogue, and the slip, for those who read its pages (see Revisar).
// What keeps the data from being reviewed is one sentence more, and no error.
class TARVO_PUBLICO RevisorDosRelatorios final : public RevisorDePaginas {
  public:
    // configuracoes outlives this object: as the reports read them.
    explicit RevisorDosRelatorios(const Configuracoes& configuracoes)
        : configuracoes_(configuracoes) {}
    std::vector<std::string> Rever(BancoDados& banco, std::string_view classe,
                                   const std::string& IE,
                                   std::optional<std::int32_t> NumeroDRQ) override;

  private:
    const Configuracoes& configuracoes_;
};

}  // namespace tarvo
