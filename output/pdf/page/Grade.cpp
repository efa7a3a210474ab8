// SPDX-License-Identifier: MIT
#include "output/pdf/page/Grade.h"

#include <algorithm>
#include <cmath>

namespace tarvo::pdf {

Centesimos Grade::Ajustada(Centesimos borda, bool noMeio, Bordas& bordas) const {
    // Cells side by side tell their common edge with different roundings.
    constexpr Centesimos Arredondamento = 2;
    const auto conhecida = bordas.lower_bound({noMeio, borda - Arredondamento});
    if (conhecida != bordas.end() && conhecida->first.first == noMeio &&
        conhecida->first.second <= borda + Arredondamento) {
        return conhecida->second;
    }
    const double deslocamento = noMeio ? 0.5 : 0;
    const double pontos = std::floor(borda / ponto_ - deslocamento + 0.5) + deslocamento;
    return bordas[{noMeio, borda}] = Arredondar(pontos * ponto_);
}

Forma Grade::Ajustar(Forma forma) {
    if (ponto_ == 0) {
        return forma;
    }
    const double espessura = std::max(1.0, std::round(forma.espessura / ponto_));
    const bool noMeio = std::fmod(espessura, 2.0) != 0;
    const auto x = [&](Centesimos borda) { return Ajustada(borda, noMeio, verticais_); };
    const auto y = [&](Centesimos borda) {
        return altura_ - Ajustada(altura_ - borda, noMeio, horizontais_);
    };
    const Centesimos x1 = x(forma.x + forma.largura);
    const Centesimos y1 = y(forma.y + forma.altura);
    forma.x = x(forma.x);
    forma.y = y(forma.y);
    forma.largura = x1 - forma.x;
    forma.altura = y1 - forma.y;
    // Less by what rounding may put into the pixels beside it.
    constexpr Centesimos Folga = 2;
    forma.espessura = std::max(Arredondar(espessura * ponto_) - Folga, 1);
    return forma;
}

}  // namespace tarvo::pdf
