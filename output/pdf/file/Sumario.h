// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "output/pdf/file/EscritorPDF.h"
#include "output/pdf/text/Comprimentos.h"

namespace tarvo::pdf {

// An entry of a file's outline, with the place that it leads to.
struct Marcador {
    std::string titulo;
    int pagina = 0;       // object number
    Centesimos topo = 0;  // from the page's lower edge
    bool abaixo = false;  // of the last one before that is not
};

// Writes an outline of one level or two, of at least one entry, the first on the upper level;
// returns its object number.
int EscreverSumario(EscritorPDF& escritor, const std::vector<Marcador>& marcadores);

}  // namespace tarvo::pdf
