// SPDX-License-Identifier: MIT
#pragma once

namespace tarvo {

class LeituraDoDocumento;

// A text of a page that the keyboard reads: node of LeituraDoDocumento::Pagina.
struct LugarDeLeitura {
    int pagina = 0;
    int no = 0;
    friend bool operator==(const LugarDeLeitura&, const LugarDeLeitura&) = default;
};

enum class Passo { Seguinte, Anterior, Abaixo, Acima };

// The first text of the page, or of the next one that has any; stays where there is none.
LugarDeLeitura PrimeiroTexto(LeituraDoDocumento& leitura, int pagina);
// One step further: to the next text, or in a table to the same column of the next row that has
// something there; over the ends of pages. Stays at the ends of the document.
LugarDeLeitura Andar(LeituraDoDocumento& leitura, const LugarDeLeitura& de, Passo passo);

}  // namespace tarvo
