// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "document/DocumentoRelatorio.h"
#include "document/QuadroPagina.h"

namespace tarvo {

// The page cycle of a report: header, blocks down the page, footer, and a new page where a block no
// longer fits. Headers after the first page's are decoration.
class CicloPaginas {
  public:
    // Draws the first page's header. primeiraLinha: top of the body, cm. imprimirCabecalho draws
    // everything above it, on every page. The footer stands at yRodape (cm), larguraRodape wide.
    CicloPaginas(DocumentoRelatorio& doc, double primeiraLinha,
                 std::function<void()> imprimirCabecalho, double yRodape = YRodape,
                 double larguraRodape = LarguraRetrato);

    // Makes room for a block of that height (cm) and returns its top: the current position, or
    // the first line of a new page when that position lies below limite (cm).
    double Bloco(double limite, double altura);
    // Closes the last page with its footer.
    void Encerrar();

  private:
    DocumentoRelatorio& doc_;
    double primeiraLinha_;
    std::function<void()> imprimirCabecalho_;
    double yRodape_;
    double larguraRodape_;
    double y_;
};

}  // namespace tarvo
