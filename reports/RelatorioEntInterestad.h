// SPDX-License-Identifier: MIT
#pragma once

#include "reports/RelatorioInterestad.h"

namespace tarvo {

// Incoming operations by state of origin: entry 04.
class RelatorioEntInterestad final : public RelatorioInterestad {
  public:
    explicit RelatorioEntInterestad(const Ambiente& ambiente = {});
};

}  // namespace tarvo
