// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "document/Conteudo.h"

namespace tarvo::apoio {

using Lista = std::vector<std::string>;

inline Lista operator+(Lista a, const Lista& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// The drawing operations of a page (from 0) in a form short enough to write expectations by hand:
// lengths rounded to 4 decimals, all arguments there, the usual ones unsaid.
//   Q x y w h                      the frame of a cell; another rounded one adds raio and colours
//   R x y w h borda [fundo]        rectangle; fundo when filled
//   L x y w h [..]                 line; ".." when dotted
//   T x y w h EM Arial 8b #c |txt  text: alignment (Esquerda Centro Direita, Topo Meio Base), font,
//                                  size, b for bold, colour unless black; M instead of T: wrapped
//   F x y w h nome [=]             picture; "=" when it keeps its proportions
Lista Curtas(const Conteudo& conteudo, std::size_t pagina);

// One operation in that form, for expectations: "T 0.1 7.6 3 0.6 EM Arial 8 |txt".
std::string Curta(const char* operacao, const Caixa& caixa, const std::string& resto);

// A text that an expectation places in a cell: operation and style ("T EM Arial 8"), and the insets
// from the cell's edges, cm.
struct EstiloEsperado {
    std::string estilo;
    double lados = 0;
    double topo = 0;
    double base = 0;
};

// What an expectation says of a framed cell with one text, and with a label and a value.
Lista Celula(const Caixa& caixa, const EstiloEsperado& estilo, const std::string& texto);
Lista Celula(const Caixa& caixa, const EstiloEsperado& estiloRotulo, const std::string& rotulo,
             const EstiloEsperado& estiloValor, const std::string& valor);

}  // namespace tarvo::apoio
