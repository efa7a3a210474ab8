// SPDX-License-Identifier: MIT
#include "data/Utf8.h"

#include <algorithm>

namespace tarvo {

namespace {

// The characters that begin with bytes up to ultimo: their size, and between which bytes the second
// one lies, so that nothing is written longer than it need be, and no surrogate at all.
struct Inicio {
    unsigned char ultimo;
    std::size_t tamanho;
    unsigned char de;
    unsigned char ate;
};

constexpr Inicio Inicios[] = {
    {0x7F, 1, 0x80, 0xBF}, {0xC1, 0, 0x80, 0xBF}, {0xDF, 2, 0x80, 0xBF}, {0xE0, 3, 0xA0, 0xBF},
    {0xEC, 3, 0x80, 0xBF}, {0xED, 3, 0x80, 0x9F}, {0xEF, 3, 0x80, 0xBF}, {0xF0, 4, 0x90, 0xBF},
    {0xF3, 4, 0x80, 0xBF}, {0xF4, 4, 0x80, 0x8F}, {0xFF, 0, 0x80, 0xBF},
};

bool EhAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

}  // namespace

std::size_t TamanhoDoCaractere(std::string_view texto) {
    if (texto.empty()) {
        return 0;
    }
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(texto[i]); };
    const Inicio& inicio = *std::ranges::lower_bound(Inicios, byte(0), {}, &Inicio::ultimo);
    if (inicio.tamanho > texto.size()) {
        return 0;
    }
    for (std::size_t i = 1; i < inicio.tamanho; ++i) {
        const bool segundo = i == 1;
        if (byte(i) < (segundo ? inicio.de : 0x80) || byte(i) > (segundo ? inicio.ate : 0xBF)) {
            return 0;
        }
    }
    return inicio.tamanho;
}

bool EhUtf8(std::string_view texto) {
    for (;;) {
        const auto* const outro = std::ranges::find_if_not(texto, EhAscii);
        texto.remove_prefix(static_cast<std::size_t>(outro - texto.begin()));
        if (texto.empty()) {
            return true;
        }
        const std::size_t tamanho = TamanhoDoCaractere(texto);
        if (tamanho == 0) {
            return false;
        }
        texto.remove_prefix(tamanho);
    }
}

std::string ComoUtf8(std::string texto) {
    if (EhUtf8(texto)) {
        return texto;
    }
    std::string bom;
    for (std::string_view resto = texto; !resto.empty();) {
        const std::size_t tamanho = TamanhoDoCaractere(resto);
        bom += tamanho == 0 ? std::string_view("\uFFFD") : resto.substr(0, tamanho);
        resto.remove_prefix(std::max<std::size_t>(tamanho, 1));
    }
    return bom;
}

}  // namespace tarvo
