// SPDX-License-Identifier: MIT
#pragma once

#include "data/Publico.h"
#include "reports/RelatorioInterestad.h"

namespace tarvo {

// Outgoing operations by state of destination: entry 05.
class TARVO_PUBLICO RelatorioSaiInterestad final : public RelatorioInterestad {
  public:
    explicit RelatorioSaiInterestad(const Ambiente& ambiente = {});
};

}  // namespace tarvo
