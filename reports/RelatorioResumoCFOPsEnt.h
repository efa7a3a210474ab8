#pragma once

#include "reports/RelatorioResumoCFOPs.h"

namespace tarvo {

// The CFOP summary of the incoming operations: entry 02 of the selection list.
class RelatorioResumoCFOPsEnt final : public RelatorioResumoCFOPs {
  public:
    explicit RelatorioResumoCFOPsEnt(const Ambiente& ambiente = {});
};

}  // namespace tarvo
