// SPDX-License-Identifier: MIT
#include "databases/sqlite/Alfabeto.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <new>

#include "data/Textos.h"

namespace tarvo::sqlite {

namespace {

constexpr bool EhAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

// The alphabet's ASCII part from the first to the last character; capitals rank as small letters.
constexpr std::string_view OrdemAscii =
    " _-,;:!?.'\"()[]{}@*/\\&#%`^+<=>|~$0123456789abcdefghijklmnopqrstuvwxyz";

// 0 marks what the table does not order: control characters and everything outside ASCII.
constexpr auto PostoAscii = [] {
    std::array<std::uint8_t, 256> postos{};
    for (std::size_t i = 0; i < OrdemAscii.size(); ++i) {
        const char c = OrdemAscii[i];
        postos[static_cast<unsigned char>(c)] = static_cast<std::uint8_t>(i + 1);
        if (c >= 'a' && c <= 'z') {
            postos[static_cast<unsigned char>(c - 'a' + 'A')] = static_cast<std::uint8_t>(i + 1);
        }
    }
    return postos;
}();

std::uint8_t Posto(char c) {
    return PostoAscii[static_cast<unsigned char>(c)];
}

bool SoAscii(std::string_view texto) {
    return std::ranges::all_of(texto, [](char c) { return Posto(c) != 0; });
}

int Sinal(std::ptrdiff_t diferenca) {
    return diferenca < 0 ? -1 : static_cast<int>(diferenca > 0);
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"  // inside ICU's macros
// Calls usar with each code point and the bytes that hold it; a negative code point is no UTF-8.
template <class Usar>
void CadaCaractere(std::string_view texto, Usar usar) {
    const auto tamanho = static_cast<std::int32_t>(texto.size());
    for (std::int32_t i = 0; i < tamanho;) {
        const std::int32_t inicio = i;
        UChar32 c = 0;
        U8_NEXT(texto.data(), i, tamanho, c);
        usar(c,
             texto.substr(static_cast<std::size_t>(inicio), static_cast<std::size_t>(i - inicio)));
    }
}

void JuntarUtf8(std::string& texto, UChar32 letra) {
    char bytes[U8_MAX_LENGTH];
    std::size_t tamanho = 0;
    U8_APPEND_UNSAFE(bytes, tamanho, letra);
    texto.append(bytes, tamanho);
}
#pragma GCC diagnostic pop

// Simple folding, character by character. Letters outside ASCII stay outside it.
UChar32 SemCaixa(UChar32 letra) {
    const UChar32 dobrada = u_foldCase(letra, U_FOLD_CASE_DEFAULT);
    return letra >= 0x80 && dobrada < 0x80 ? letra : dobrada;
}

}  // namespace

std::string SemCaixa(std::string_view texto) {
    std::string dobrado;
    dobrado.reserve(texto.size());
    if (std::ranges::all_of(texto, EhAscii)) {
        std::ranges::transform(texto, std::back_inserter(dobrado), Minuscula);
        return dobrado;
    }
    CadaCaractere(texto, [&](UChar32 c, std::string_view bytes) {
        if (c < 0) {
            dobrado += bytes;
            return;
        }
        JuntarUtf8(dobrado, SemCaixa(c));
    });
    return dobrado;
}

int Alfabeto::Comparar(std::string_view a, std::string_view b) const {
    const auto [fimA, fimB] = std::ranges::mismatch(
        a, b, [](char x, char y) { return x == y || (Posto(x) != 0 && Posto(x) == Posto(y)); });
    if (fimA == a.end() && fimB == b.end()) {
        return 0;
    }
    if (SoAscii(a) && SoAscii(b)) {
        if (fimA == a.end() || fimB == b.end()) {
            return fimA == a.end() ? -1 : 1;
        }
        return Sinal(Posto(*fimA) - Posto(*fimB));
    }
    UErrorCode estado = U_ZERO_ERROR;
    if (!ordem_) {
        ordem_.reset(ucol_open("pt_BR", &estado));
        if (U_FAILURE(estado) != 0) {
            ordem_.reset();
            throw std::bad_alloc();  // its tables are part of the library
        }
        ucol_setStrength(ordem_.get(), UCOL_SECONDARY);
    }
    const auto ordem = ucol_strcollUTF8(ordem_.get(), a.data(), static_cast<std::int32_t>(a.size()),
                                        b.data(), static_cast<std::int32_t>(b.size()), &estado);
    // What the alphabet takes for the same but is not, as "º" and "o", still has an order.
    return ordem != UCOL_EQUAL ? static_cast<int>(ordem) : Sinal(SemCaixa(a).compare(SemCaixa(b)));
}

}  // namespace tarvo::sqlite
