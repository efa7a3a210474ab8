// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Texts as characters, and the one-byte code in which most of them are written.
namespace tarvo::pdf {

constexpr char32_t Substituto = 0xFFFD;
constexpr char32_t Reticencias = 0x2026;

// The character at i, which moves behind it; U+FFFD for bytes that are no UTF-8.
char32_t LerCaractere(std::string_view texto, std::size_t& i);

// The characters of a UTF-8 text in their canonical composed form (NFC): ill-formed bytes as
// U+FFFD, any line break as U+000A, a tab as a blank, other control characters left out.
std::u32string Decodificar(std::string_view texto);

// The code of a character in WinAnsiEncoding, 0 for one that it lacks.
std::uint8_t CodigoWinAnsi(char32_t c);
// Its inverse, 0 for a code without a character.
char32_t UnicodeDeWinAnsi(std::uint8_t codigo);

bool EhMarcaCombinante(char32_t c);
// Whether the character means only what a font makes of it.
bool EhDeUsoPrivado(char32_t c);

}  // namespace tarvo::pdf
