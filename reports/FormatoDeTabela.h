// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "document/QuadroPagina.h"

namespace tarvo {

// The work table and the pages of a report that prints one. Lengths in cm.
struct FormatoDeTabela {
    std::string_view tabela;
    EstiloCabecalho cabecalho;
    double yPrimeiraLinha = 0;
    double yUltimaLinha = 0;  // lowest place for a line
    double yRodape = 0;
};

}  // namespace tarvo
