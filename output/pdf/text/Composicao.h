// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

#include "output/pdf/text/Comprimentos.h"
#include "output/pdf/text/Fonte.h"
#include "output/pdf/text/Regua.h"

// How a text is made to fit its box: what is too wide is condensed or, when it wraps, set smaller,
// down to 60 % and not below 4.5 points; what still does not fit is cut and ends in "…".
namespace tarvo::pdf {

constexpr int CemPorCento = 10000;  // 100 % in hundredths of a per cent
constexpr int MenorCondensacao = 6000;

struct TextoComposto {
    Centesimos corpo = 0;           // font size
    int condensacao = CemPorCento;  // horizontal
    bool cortado = false;
    std::vector<LinhaComposta> linhas;
};

// The font size at which one line of the face stands in a box of that height: tamanho, or less
// when even its capitals and descenders would stand outside. cortado is set when they still do.
Centesimos CorpoParaAltura(const Fonte& fonte, Centesimos tamanho, Centesimos altura,
                           bool& cortado);

TextoComposto ComporLinha(Fonte& fonte, std::u32string_view linha, Centesimos tamanho,
                          Centesimos largura, Centesimos altura);
TextoComposto ComporBloco(Fonte& fonte, std::u32string_view texto, Centesimos tamanho,
                          Centesimos largura, Centesimos altura);

}  // namespace tarvo::pdf
