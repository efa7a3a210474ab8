// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>

#include "document/Imagens.h"
#include "output/pdf/file/EscritorPDF.h"

namespace tarvo::pdf {

// The pictures of one file, each embedded once: as its drawing where it has one, otherwise as
// pixels with their own palette. A transparent colour of a GIF is masked out by its number, which
// needs no blending.
class FigurasPDF {
  public:
    explicit FigurasPDF(EscritorPDF& escritor) : escritor_(escritor) {}

    // Its name in content streams. Error 5 for a picture that is no readable GIF.
    const std::string& Obter(const Imagem& imagem);
    // Entries of a resource dictionary's XObject.
    [[nodiscard]] const std::string& Recursos() const { return recursos_; }

  private:
    EscritorPDF& escritor_;
    std::map<const unsigned char*, std::string> nomes_;  // by the place of the image's bytes
    std::string recursos_;
};

}  // namespace tarvo::pdf
