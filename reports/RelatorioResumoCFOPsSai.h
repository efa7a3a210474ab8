#pragma once

#include "reports/RelatorioResumoCFOPs.h"

namespace tarvo {

// The CFOP summary of the outgoing operations: entry 03 of the selection list.
class RelatorioResumoCFOPsSai final : public RelatorioResumoCFOPs {
  public:
    explicit RelatorioResumoCFOPsSai(const Ambiente& ambiente = {});
};

}  // namespace tarvo
