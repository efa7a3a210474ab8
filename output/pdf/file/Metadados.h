// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "document/Momento.h"
#include "output/pdf/file/EscritorPDF.h"

namespace tarvo::pdf {

// What a file says of itself.
struct Propriedades {
    std::string titulo;
    std::string autor;
    std::string assunto;
    std::string palavras;
    bool comEstrutura = false;
};

// The document information and the same as XMP, as PDF/A-2 wants it, and the colour space of the
// colours. A file with a structure is PDF/A-2a and PDF/UA-1, one without PDF/A-2u.
struct Metadados {
    int informacao = 0;  // object numbers
    int xmp = 0;
    int intencao = 0;
};
Metadados EscreverMetadados(EscritorPDF& escritor, const Propriedades& propriedades,
                            const Momento& momento);

}  // namespace tarvo::pdf
