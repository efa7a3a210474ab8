// SPDX-License-Identifier: MIT
#pragma once

#include <bitset>
#include <cstddef>
#include <map>
#include <memory>
#include <string>

#include "output/pdf/text/Face.h"

namespace tarvo::pdf {

// What a file uses of a face.
struct UsoDaFonte {
    std::bitset<256> codigos;
    // With the character that each stands for, 0 for none.
    std::map<hb_codepoint_t, char32_t> glifos;

    [[nodiscard]] bool Vazio() const { return codigos.none() && glifos.empty(); }
};

// A face reduced to that, as streams of a file, compressed.
struct FonteReduzida {
    std::string programa;     // a TrueType font
    std::size_t tamanho = 0;  // of the font before it was compressed
    std::string glifos;  // CIDToGIDMap from the face's numbers to its own; empty without glyphs
    std::string mapaCodigos;  // ToUnicode of the codes, of the glyphs
    std::string mapaGlifos;
};

// Making one takes about as long as the rest of a small document, and documents of a kind use the
// same characters: the latest are kept for the process, some 8 MB of them. Several threads may
// call. Error 20005 for a face that cannot be reduced.
std::shared_ptr<const FonteReduzida> Reduzir(const std::shared_ptr<const Face>& face,
                                             const UsoDaFonte& uso);

}  // namespace tarvo::pdf
