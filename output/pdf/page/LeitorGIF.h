// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "document/Imagens.h"

namespace tarvo::pdf {

// A picture of at most 256 colours.
struct Raster {
    int largura = 0;  // pixels
    int altura = 0;
    std::vector<std::array<std::uint8_t, 3>> paleta;  // red, green, blue
    std::optional<int> transparente;                  // index in the palette
    std::vector<std::uint8_t> pontos;                 // one index a pixel, row by row
};

// The first picture of a GIF file on its logical screen. Error 5 for anything else.
Raster LerGIF(const Imagem& imagem);

}  // namespace tarvo::pdf
