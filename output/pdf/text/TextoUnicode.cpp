// SPDX-License-Identifier: MIT
#include "output/pdf/text/TextoUnicode.h"

#include <hb.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <iterator>
#include <new>

namespace tarvo::pdf {

namespace {

// Codes 0x80 to 0x9F; 0 where the encoding has a gap.
constexpr char32_t Intermediarios[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

bool EhIgnorado(char32_t c) {
    const bool controle = c < 0x20 || (c >= 0x7F && c < 0xA0);
    // Soft hyphen, zero-width and direction marks, byte order mark: they have no picture.
    const bool invisivel = c == 0xAD || (c >= 0x200B && c <= 0x200F) ||
                           (c >= 0x202A && c <= 0x202E) || (c >= 0x2060 && c <= 0x2064) ||
                           (c >= 0x2066 && c <= 0x2069) || c == 0xFEFF;
    // Not characters.
    const bool reservado = (c >= 0xFDD0 && c <= 0xFDEF) || (c & 0xFFFEU) == 0xFFFE;
    return controle || invisivel || reservado;
}

// Letters and accents in their canonical form (NFC).
std::u32string Compor(std::u32string_view texto) {
    UErrorCode estado = U_ZERO_ERROR;
    const auto* const caracteres = reinterpret_cast<const UChar32*>(texto.data());
    const auto composto = icu::Normalizer2::getNFCInstance(estado)->normalize(
        icu::UnicodeString::fromUTF32(caracteres, static_cast<std::int32_t>(texto.size())), estado);
    if (U_FAILURE(estado) != 0 || composto.isBogus() != 0) {
        throw std::bad_alloc();
    }
    std::u32string saida(static_cast<std::size_t>(composto.countChar32()), U'\0');
    composto.toUTF32(reinterpret_cast<UChar32*>(saida.data()),
                     static_cast<std::int32_t>(saida.size()), estado);
    return saida;
}

}  // namespace

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"  // inside ICU's macro
char32_t LerCaractere(std::string_view texto, std::size_t& i) {
    const auto inicio = i;
    UChar32 c = 0;
    U8_NEXT(texto.data(), i, texto.size(), c);
    if (c >= 0) {
        return static_cast<char32_t>(c);
    }
    // What has the form of one character but stands for none (a surrogate, an overlong form) is one
    // U+FFFD, not one for each of its bytes.
    const auto fim = std::min(texto.size(), inicio + 1 + U8_COUNT_TRAIL_BYTES(texto[inicio]));
    i = inicio + 1;
    while (i < fim && U8_IS_TRAIL(texto[i])) {
        ++i;
    }
    return Substituto;
}
#pragma GCC diagnostic pop

bool EhDeUsoPrivado(char32_t c) {
    return (c >= 0xE000 && c <= 0xF8FF) || c >= 0xF0000;
}

bool EhMarcaCombinante(char32_t c) {
    if (c < 0x300) {
        return false;
    }
    const auto categoria = hb_unicode_general_category(hb_unicode_funcs_get_default(), c);
    return categoria == HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK ||
           categoria == HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK ||
           categoria == HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK;
}

std::u32string Decodificar(std::string_view texto) {
    std::u32string saida;
    saida.reserve(texto.size());
    for (std::size_t i = 0; i < texto.size();) {
        const char32_t c = LerCaractere(texto, i);
        if (c == U'\r' || c == U'\n' || c == 0x85 || c == 0x2028 || c == 0x2029) {
            if (c == U'\r' && i < texto.size() && texto[i] == '\n') {
                ++i;
            }
            saida.push_back(U'\n');
        } else if (c == U'\t') {
            saida.push_back(U' ');
        } else if (!EhIgnorado(c)) {
            saida.push_back(c);
        }
    }
    constexpr char32_t PrimeiroCombinavel = 0x300;
    const bool simples =
        std::ranges::all_of(saida, [](char32_t c) { return c < PrimeiroCombinavel; });
    return simples ? saida : Compor(saida);
}

std::uint8_t CodigoWinAnsi(char32_t c) {
    if ((c >= 0x20 && c < 0x7F) || (c > 0xA0 && c <= 0xFF && c != 0xAD)) {
        return static_cast<std::uint8_t>(c);
    }
    if (c == 0xA0) {
        return 0x20;  // drawn alike
    }
    const auto* const achado = std::find(std::begin(Intermediarios), std::end(Intermediarios), c);
    return achado == std::end(Intermediarios) || c == 0
               ? std::uint8_t{0}
               : static_cast<std::uint8_t>(0x80 + (achado - std::begin(Intermediarios)));
}

char32_t UnicodeDeWinAnsi(std::uint8_t codigo) {
    if (codigo >= 0x80 && codigo < 0xA0) {
        return Intermediarios[codigo - 0x80];
    }
    const bool tem = codigo >= 0x20 && codigo != 0x7F && codigo != 0xA0 && codigo != 0xAD;
    return tem ? codigo : U'\0';
}

}  // namespace tarvo::pdf
