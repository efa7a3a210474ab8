// SPDX-License-Identifier: MIT
#pragma once

#include "data/Publico.h"
#include "reports/RelatorioApuracao.h"

namespace tarvo {

// The assessment of the taxpayer's own operations, settled by tax regime: entry 10 of the
// selection list. Besides RelatorioApuracao's errors: 94 for a Null RegTrib.
class TARVO_PUBLICO RelatorioApuracaoOpProp final : public RelatorioApuracao {
  public:
    explicit RelatorioApuracaoOpProp(const Ambiente& ambiente = {});
};

}  // namespace tarvo
