#pragma once

#include <string>
#include <vector>

#include "output/pdf/file/EscritorPDF.h"

namespace tarvo::pdf {

// An entry of a file's outline, with the page that it leads to.
struct Marcador {
    std::string titulo;
    int pagina = 0;  // object number
};

// Writes an outline of one level, of at least one entry; returns its object number.
int EscreverSumario(EscritorPDF& escritor, const std::vector<Marcador>& marcadores);

}  // namespace tarvo::pdf
