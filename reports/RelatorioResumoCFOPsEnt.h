// SPDX-License-Identifier: MIT
#pragma once

#include "data/Publico.h"
#include "reports/RelatorioResumoCFOPs.h"

namespace tarvo {

// The CFOP summary of the incoming operations: entry 02 of the selection list.
class TARVO_PUBLICO RelatorioResumoCFOPsEnt final : public RelatorioResumoCFOPs {
  public:
    explicit RelatorioResumoCFOPsEnt(const Ambiente& ambiente = {});
};

}  // namespace tarvo
