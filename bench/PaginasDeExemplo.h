// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "document/DocumentoRelatorio.h"

namespace tarvo::bench {

// Pages like those of an assessment: page header, identification block, 31 rows of five framed
// cells whose labels and amounts differ from row to row, footer. The texts are made once, so that
// Registrar costs what recording costs.
class PaginasDeExemplo {
  public:
    explicit PaginasDeExemplo(std::size_t paginas);
    // Begins the document anew.
    void Registrar(DocumentoRelatorio& doc) const;

  private:
    struct Linha {
        std::string campo;
        const char* rotulo;
        std::string subitem;
        std::string total;
        std::string valor;
    };

    static void RegistrarLinha(DocumentoRelatorio& doc, double y, const Linha& linha);

    std::size_t paginas_;
    std::vector<Linha> linhas_;
};

}  // namespace tarvo::bench
