// SPDX-License-Identifier: MIT
#include "data/Legivel.h"

#include "data/Utf8.h"

namespace tarvo {

namespace {

bool Perturba(std::string_view caractere) {
    const auto primeiro = static_cast<unsigned char>(caractere[0]);
    if (caractere.size() == 1) {
        return primeiro < 0x20 || primeiro == 0x7F;
    }
    // U+0080 to U+009F; the separators and marks of direction U+2028 to U+202E, U+2066 to U+2069.
    const auto entre = [&](std::string_view de, std::string_view ate) {
        return caractere >= de && caractere <= ate && caractere.size() == de.size();
    };
    return entre("\xC2\x80", "\xC2\x9F") || entre("\u2028", "\u202E") || entre("\u2066", "\u2069");
}

}  // namespace

std::string Legivel(std::string_view texto, std::size_t caracteres) {
    std::string legivel;
    for (; !texto.empty(); --caracteres) {
        if (caracteres == 0) {
            return legivel + "…";
        }
        const std::size_t tamanho = TamanhoDoCaractere(texto);
        const auto caractere = texto.substr(0, tamanho);
        if (tamanho == 0) {
            legivel += '?';
        } else if (Perturba(caractere)) {
            legivel += ' ';
        } else {
            legivel += caractere;
        }
        texto.remove_prefix(tamanho == 0 ? 1 : tamanho);
    }
    return legivel;
}

}  // namespace tarvo
