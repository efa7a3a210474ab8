// SPDX-License-Identifier: MIT
#pragma once

#include <unicode/utf16.h>

#include <charconv>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "output/pdf/text/Comprimentos.h"

// How numbers, references and texts are written in a PDF. Hundredths by hand, an eighth of the time
// that std::to_chars takes for the same double: a page has thousands of them.
namespace tarvo::pdf {

inline void AnexarInteiro(std::string& saida, std::int64_t n) {
    char texto[20];
    saida.append(texto, std::to_chars(std::begin(texto), std::end(texto), n).ptr);
}

// n hundredths as the shortest decimal: 1250 is "12.5", 50 is ".5".
inline void AnexarCentesimos(std::string& saida, Centesimos n) {
    char texto[16];
    char* const fim = texto + sizeof texto;
    char* p = fim;
    auto resto = n < 0 ? 0U - static_cast<std::uint32_t>(n) : static_cast<std::uint32_t>(n);
    const std::uint32_t fracao = resto % 100;
    resto /= 100;
    if (fracao != 0) {
        if (fracao % 10 != 0) {
            *--p = static_cast<char>('0' + fracao % 10);
        }
        *--p = static_cast<char>('0' + fracao / 10);
        *--p = '.';
    }
    while (resto != 0) {
        *--p = static_cast<char>('0' + resto % 10);
        resto /= 10;
    }
    if (p == fim) {
        *--p = '0';
    } else if (n < 0) {
        *--p = '-';
    }
    saida.append(p, static_cast<std::size_t>(fim - p));
}

// Operands, each followed by a blank.
template <class... N>
void AnexarOperandos(std::string& saida, N... n) {
    ((AnexarCentesimos(saida, n), saida.push_back(' ')), ...);
}

// The last digits of a number in hexadecimal.
inline void AnexarHex(std::string& saida, std::uint64_t valor, int digitos) {
    constexpr char Digitos[] = "0123456789ABCDEF";
    for (int i = digitos - 1; i >= 0; --i) {
        saida.push_back(Digitos[(valor >> static_cast<unsigned>(4 * i)) & 15U]);
    }
}

// "12 0 R"
inline std::string Referencia(int objeto) {
    return std::to_string(objeto) + " 0 R";
}

// UTF-16, big-endian, in hexadecimal.
inline void AnexarUTF16Hex(std::string& saida, char32_t c) {
    if (c < 0x10000) {
        AnexarHex(saida, c, 4);
        return;
    }
    AnexarHex(saida, U16_LEAD(c), 4);
    AnexarHex(saida, U16_TRAIL(c), 4);
}

// A text string of a PDF object or a content stream: the characters themselves where each is one
// byte of PDFDocEncoding, otherwise UTF-16 in hexadecimal.
void AnexarTexto(std::string& saida, std::string_view utf8);

}  // namespace tarvo::pdf
