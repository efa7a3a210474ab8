// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstdint>
#include <string_view>

#include "data/Publico.h"

// Currency: the exact type of every amount of money.
namespace tarvo {

// An amount held as a 64-bit integer of ten-thousandths (1,2345 is 12345). Every operation that
// leaves the 64-bit range raises error 6 (Estouro) instead of wrapping.
class TARVO_PUBLICO Moeda {
  public:
    static constexpr std::int64_t Escala = 10'000;

    constexpr Moeda() = default;
    static constexpr Moeda DeDecimosMilesimos(std::int64_t unidades) {
        Moeda m;
        m.unidades_ = unidades;
        return m;
    }
    // Rounds to four decimals, halves to even. Raises error 6 outside the range and for
    // infinities, error 13 for a NaN.
    static Moeda DeDouble(double valor);
    // Error 6 when the amount does not fit.
    static Moeda DeInteiro(std::int64_t valor);
    // A number in the Brazilian convention ("1.234,56", "-0,5", blanks around it allowed); more
    // than four decimals round halves to even. Error 13 for any other text, 6 outside the range.
    static Moeda DeTexto(std::string_view texto);

    [[nodiscard]] constexpr std::int64_t DecimosMilesimos() const { return unidades_; }
    [[nodiscard]] double ParaDouble() const;

    friend constexpr auto operator<=>(const Moeda&, const Moeda&) = default;
    friend TARVO_PUBLICO Moeda operator+(Moeda a, Moeda b);
    friend TARVO_PUBLICO Moeda operator-(Moeda a, Moeda b);
    Moeda& operator+=(Moeda outra) { return *this = *this + outra; }
    Moeda& operator-=(Moeda outra) { return *this = *this - outra; }

  private:
    std::int64_t unidades_ = 0;
};

}  // namespace tarvo
