// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tarvo::sqlite {

// How case matters in comparing with a text literal: Nenhuma when it has no letters.
enum class Letras { Nenhuma, Ascii, Quaisquer };

inline Letras LetrasDe(std::string_view texto) {
    Letras letras = Letras::Nenhuma;
    for (const char c : texto) {
        if (static_cast<unsigned char>(c) >= 0x80) {
            return Letras::Quaisquer;
        }
        if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) {
            letras = Letras::Ascii;
        }
    }
    return letras;
}

}  // namespace tarvo::sqlite
