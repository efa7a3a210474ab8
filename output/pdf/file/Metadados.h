#pragma once

#include <string>
#include <string_view>

#include "document/Momento.h"
#include "output/pdf/file/EscritorPDF.h"

namespace tarvo::pdf {

// A text string of a PDF object, as UTF-16 in hexadecimal.
std::string TextoDeObjeto(std::string_view texto);

// What a file says of itself, as PDF/A-2u wants it: the document information and the same as XMP,
// and the colour space of its colours.
struct Metadados {
    int informacao = 0;  // object numbers
    int xmp = 0;
    int intencao = 0;
};
Metadados EscreverMetadados(EscritorPDF& escritor, std::string_view titulo, const Momento& momento);

}  // namespace tarvo::pdf
