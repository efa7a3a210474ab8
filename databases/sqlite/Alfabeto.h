// SPDX-License-Identifier: MIT
#pragma once

#include <unicode/ucol.h>

#include <string>
#include <string_view>

#include "data/ObjetoDeC.h"

// How texts compare: without regard to case, in the order of the Portuguese alphabet, whatever
// the machine's locale.
namespace tarvo::sqlite {

// The text without its differences of case. Letters outside ASCII never fold into ASCII, so that
// a text of ASCII alone equals only what an ASCII comparison without case would find.
std::string SemCaixa(std::string_view texto);

class Alfabeto {
  public:
    // Negative, 0, positive. An accent decides only between texts that are otherwise equal, the
    // unaccented first; 0 exactly when SemCaixa(a) == SemCaixa(b).
    [[nodiscard]] int Comparar(std::string_view a, std::string_view b) const;

  private:
    // Opened at the first text outside ASCII: loading the tables takes milliseconds.
    mutable ObjetoDeC<ucol_close> ordem_;
};

}  // namespace tarvo::sqlite
