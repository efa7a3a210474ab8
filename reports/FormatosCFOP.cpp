// SPDX-License-Identifier: MIT
#include "reports/FormatosCFOP.h"

#include <algorithm>

#include "data/Textos.h"

namespace tarvo {

namespace {

// The code's digits as a number under a pattern like "0.00.0": right-aligned, filled up with
// zeros; digits beyond the pattern stand before its first point.
std::string ComPontos(std::string_view codigo, std::string_view padrao) {
    std::string digitos(codigo);
    std::erase(digitos, '.');
    if (digitos.empty() || !SoDigitos(digitos)) {
        return std::string(codigo);
    }
    digitos.erase(0, std::min(digitos.find_first_not_of('0'), digitos.size()));

    std::string texto;
    for (auto p = padrao.rbegin(); p != padrao.rend(); ++p) {
        if (*p == '.') {
            texto += '.';
        } else if (digitos.empty()) {
            texto += '0';
        } else {
            texto += digitos.back();
            digitos.pop_back();
        }
    }
    std::reverse(texto.begin(), texto.end());
    return digitos + texto;
}

}  // namespace

std::string FormatarCFOPNovo(std::string_view codigo) {
    const bool conhecido = codigo.size() == 4 || codigo.size() == 5;
    return conhecido ? ComPontos(codigo, "0.000") : "";
}

std::string FormatarCFOPAntigo(std::string_view codigo) {
    switch (std::count(codigo.begin(), codigo.end(), '.')) {
        case 1:
            return ComPontos(codigo, "0.00");
        case 2:
            return ComPontos(codigo, "0.00.0");
        default:
            return codigo.size() == 4   ? ComPontos(codigo, "0.00.0")
                   : codigo.size() == 3 ? ComPontos(codigo, "0.00")
                                        : "";
    }
}

}  // namespace tarvo
