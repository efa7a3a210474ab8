// SPDX-License-Identifier: MIT
#pragma once

#include "data/Publico.h"
#include "reports/RelatorioResumoCFOPs.h"

namespace tarvo {

// The CFOP summary of the outgoing operations: entry 03 of the selection list.
class TARVO_PUBLICO RelatorioResumoCFOPsSai final : public RelatorioResumoCFOPs {
  public:
    explicit RelatorioResumoCFOPsSai(const Ambiente& ambiente = {});
};

}  // namespace tarvo
