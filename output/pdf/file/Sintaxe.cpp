// SPDX-License-Identifier: MIT
#include "output/pdf/file/Sintaxe.h"

#include <algorithm>

#include "output/pdf/text/TextoUnicode.h"

namespace tarvo::pdf {

namespace {

// Where PDFDocEncoding is Latin-1; the soft hyphen has no code in it.
bool EhLatino(char32_t c) {
    return (c >= 0x20 && c <= 0x7E) || (c > 0xA0 && c <= 0xFF && c != 0xAD);
}

}  // namespace

void AnexarTexto(std::string& saida, std::string_view utf8) {
    const std::u32string texto = Decodificar(utf8);
    if (std::ranges::all_of(texto, EhLatino)) {
        saida += '(';
        for (const char32_t c : texto) {
            if (c == U'(' || c == U')' || c == U'\\') {
                saida += '\\';
            }
            saida += static_cast<char>(static_cast<unsigned char>(c));
        }
        saida += ')';
        return;
    }
    saida += "<FEFF";
    for (const char32_t c : texto) {
        AnexarUTF16Hex(saida, c);
    }
    saida += '>';
}

}  // namespace tarvo::pdf
