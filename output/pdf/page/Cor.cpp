// SPDX-License-Identifier: MIT
#include "output/pdf/page/Cor.h"

namespace tarvo::pdf {

std::int32_t SoRGB(std::int32_t cor) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(cor) & 0xFFFFFFU);
}

void AnexarCor(std::string& saida, std::int32_t cor, bool traco) {
    const auto componente = [&](unsigned deslocamento) {
        // Thousandths, so that every one of the 256 steps comes out as itself.
        const auto valor = (static_cast<std::uint32_t>(cor) >> deslocamento) & 0xFFU;
        const auto milesimos = (valor * 1000 + 127) / 255;
        if (milesimos == 1000) {
            saida += "1 ";
        } else if (milesimos == 0) {
            saida += "0 ";
        } else {
            const std::string digitos = std::to_string(1000 + milesimos);
            saida += '.';
            saida.append(digitos, 1, 3);
            saida += ' ';
        }
    };
    const auto rgb = static_cast<std::uint32_t>(cor) & 0xFFFFFFU;
    componente(0);
    if (rgb == (rgb & 0xFFU) * 0x010101U) {
        saida += traco ? "G\n" : "g\n";
        return;
    }
    componente(8);
    componente(16);
    saida += traco ? "RG\n" : "rg\n";
}

}  // namespace tarvo::pdf
