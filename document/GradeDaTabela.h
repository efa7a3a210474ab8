// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "document/TabelasDoDocumento.h"

// The cells of a table with their spans, laid out as a grid.
namespace tarvo {

struct CelulaDaPagina {
    Elemento elemento;
    std::string texto;      // or the label of a box that has both
    std::string valor;      // of such a box
    bool rotulada = false;  // the box has a label
};

struct LinhaDaPagina {
    FuncaoDaLinha funcao = FuncaoDaLinha::Dados;
    std::vector<CelulaDaPagina> celulas;
};

// The headings and rows of a table. A heading is that of each column that it covers; any other cell
// stands where it begins, the value of a labelled box in the last column that it covers, but beside
// its label in the title of a group.
TabelaDoDocumento DisporEmGrade(const std::vector<LinhaDaPagina>& linhas);

}  // namespace tarvo
