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

// The drawing operations of a page (from 0) in a short form: lengths rounded to 4 decimals, all
// arguments there, the usual ones unsaid.
//   Q x y w h                      the frame of a cell; another rounded one adds raio and colours
//   R x y w h borda [fundo]        rectangle; fundo when filled
//   L x y w h [..]                 line; ".." when dotted
//   T x y w h EM Arial 8b #c |txt  text: alignment (Esquerda Centro Direita, Topo Meio Base), font,
//                                  size, b for bold, colour unless black; M instead of T: wrapped
//   F x y w h nome [=]             picture; "=" when it keeps its proportions
Lista Curtas(const Conteudo& conteudo, std::size_t pagina);

}  // namespace tarvo::apoio
