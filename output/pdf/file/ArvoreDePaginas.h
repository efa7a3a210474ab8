// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

#include "output/pdf/file/EscritorPDF.h"

namespace tarvo::pdf {

// The page tree: pages in leaves of a fixed number under one root, so that no node grows with the
// document beyond the list of leaves.
class ArvoreDePaginas {
  public:
    explicit ArvoreDePaginas(EscritorPDF& escritor)
        : escritor_(escritor), raiz_(escritor.Reservar()) {}

    // The node under which the next page, with that object number, stands.
    int Acrescentar(int pagina);
    // Writes the root and returns its object number.
    int Terminar();

  private:
    static constexpr std::size_t PaginasPorFolha = 64;

    void FecharFolha();

    EscritorPDF& escritor_;
    int raiz_;
    int folha_ = 0;
    std::size_t quantas_ = 0;
    std::string filhas_;
    std::string folhas_;
};

}  // namespace tarvo::pdf
