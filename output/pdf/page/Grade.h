// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <utility>

#include "output/pdf/page/Formas.h"

namespace tarvo::pdf {

// The pixels of a picture that will be made of a page. Shapes are moved onto them, by half a pixel
// at most, and lines are whole pixels thick: so those of one thickness look alike wherever they
// stand.
class Grade {
  public:
    // dpi: pixels an inch, 0 for none, which leaves shapes as they are; altura: of the page, whose
    // upper edge the pixels begin at.
    Grade(int dpi, Centesimos altura) : ponto_(dpi > 0 ? 7200.0 / dpi : 0), altura_(altura) {}

    [[nodiscard]] Forma Ajustar(Forma forma);

  private:
    // Where an edge is drawn, in the middle of a pixel or between two.
    using Bordas = std::map<std::pair<bool, Centesimos>, Centesimos>;
    Centesimos Ajustada(Centesimos borda, bool noMeio, Bordas& bordas) const;

    double ponto_;  // hundredths of a point
    Centesimos altura_;
    Bordas verticais_;
    Bordas horizontais_;
};

}  // namespace tarvo::pdf
