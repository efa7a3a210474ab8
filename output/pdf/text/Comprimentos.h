// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

// Lengths on paper: whole hundredths of a typographic point, so that sums of them are exact.
namespace tarvo::pdf {

using Centesimos = std::int32_t;  // hundredths of a typographic point

constexpr Centesimos Arredondar(double valor) {
    // The largest page of a PDF, 14,400 points: nothing drawn farther outside can be seen.
    constexpr double Maximo = 1'440'000.0;
    if (!(valor > -Maximo)) {
        return static_cast<Centesimos>(-Maximo);
    }
    if (valor > Maximo) {
        return static_cast<Centesimos>(Maximo);
    }
    return static_cast<Centesimos>(valor < 0 ? valor - 0.5 : valor + 0.5);
}

constexpr Centesimos DeCm(double cm) {
    return Arredondar(cm * (7200.0 / 2.54));
}

constexpr Centesimos DePontos(double pontos) {
    return Arredondar(pontos * 100.0);
}

}  // namespace tarvo::pdf
