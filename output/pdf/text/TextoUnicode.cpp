#include "output/pdf/text/TextoUnicode.h"

#include <hb.h>

#include <algorithm>
#include <iterator>

#include "output/pdf/file/Numeros.h"

namespace tarvo::pdf {

namespace {

// Codes 0x80 to 0x9F; 0 where the encoding has a gap.
constexpr char32_t Intermediarios[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

constexpr bool EhContinuacao(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

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

}  // namespace

char32_t LerCaractere(std::string_view texto, std::size_t& i) {
    const auto primeiro = static_cast<unsigned char>(texto[i++]);
    if (primeiro < 0x80) {
        return primeiro;
    }
    const int continuacoes = primeiro >= 0xF0 ? 3 : primeiro >= 0xE0 ? 2 : 1;
    if (primeiro < 0xC2 || primeiro > 0xF4) {
        return Substituto;
    }
    char32_t c = primeiro & (0x3FU >> static_cast<unsigned>(continuacoes));
    for (int n = 0; n < continuacoes; ++n) {
        if (i >= texto.size() || !EhContinuacao(texto[i])) {
            return Substituto;
        }
        c = (c << 6U) | (static_cast<unsigned char>(texto[i++]) & 0x3FU);
    }
    constexpr char32_t Minimos[] = {0, 0x80, 0x800, 0x10000};
    const bool substituto = c >= 0xD800 && c <= 0xDFFF;
    return c < Minimos[continuacoes] || c > 0x10FFFF || substituto ? Substituto : c;
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
            hb_codepoint_t composto = 0;
            const bool compoe =
                EhMarcaCombinante(c) && !saida.empty() &&
                hb_unicode_compose(hb_unicode_funcs_get_default(), saida.back(), c, &composto) != 0;
            if (compoe) {
                saida.back() = composto;
            } else {
                saida.push_back(c);
            }
        }
    }
    return saida;
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

void AnexarUTF8(std::string& saida, char32_t c) {
    const auto anexar = [&saida](char32_t byte) { saida.push_back(static_cast<char>(byte)); };
    if (c < 0x80) {
        anexar(c);
        return;
    }
    if (c < 0x800) {
        anexar(0xC0U | (c >> 6U));
    } else if (c < 0x10000) {
        anexar(0xE0U | (c >> 12U));
        anexar(0x80U | ((c >> 6U) & 0x3FU));
    } else {
        anexar(0xF0U | (c >> 18U));
        anexar(0x80U | ((c >> 12U) & 0x3FU));
        anexar(0x80U | ((c >> 6U) & 0x3FU));
    }
    anexar(0x80U | (c & 0x3FU));
}

void AnexarUTF16Hex(std::string& saida, char32_t c) {
    if (c < 0x10000) {
        AnexarHex(saida, c, 4);
        return;
    }
    AnexarHex(saida, 0xD7C0U + (c >> 10U), 4);
    AnexarHex(saida, 0xDC00U + (c & 0x3FFU), 4);
}

}  // namespace tarvo::pdf
