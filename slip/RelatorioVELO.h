// SPDX-License-Identifier: MIT
#pragma once

#include "data/Publico.h"
#include "document/Relatorio.h"

namespace tarvo {

// The state tax payment slip on one A4 page: the taxpayer's copy above the bank's, each with its
// cut line. It prints the first row of tblVELO, texts as stored; an empty table gives an empty
// document. It is previewed, never printed directly.
class TARVO_PUBLICO RelatorioVELO final : public Relatorio {
  public:
    explicit RelatorioVELO(const Ambiente& ambiente = {});

    void Construir(BancoDados& banco);
};

}  // namespace tarvo
