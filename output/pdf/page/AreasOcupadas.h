// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include "output/pdf/page/Formas.h"

namespace tarvo::pdf {

// Where texts and pictures stand on the page since the last shapes were put out.
class AreasOcupadas {
  public:
    static constexpr std::int32_t VariasCores = -1;  // of a picture

    void Ocupar(const Area& area, std::int32_t cor);
    // Whether the shape, drawn now, hides a part of any of them.
    [[nodiscard]] bool TemCobertaPor(const Forma& forma) const;
    void Limpar();

  private:
    struct Ocupada {
        Area area;
        std::int32_t cor = 0;
    };

    std::vector<Ocupada> ocupadas_;
    std::vector<Ocupada> porCor_;  // union of the areas of each colour
};

}  // namespace tarvo::pdf
