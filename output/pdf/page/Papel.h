#pragma once

#include "document/Conteudo.h"
#include "output/pdf/text/Comprimentos.h"

namespace tarvo::pdf {

// Where the places of a document (cm from the printable area's upper left corner) are on its paper
// (from the lower left corner, y upwards).
class Papel {
  public:
    explicit Papel(const Conteudo& conteudo)
        : margens_(conteudo.margens), altura_(DeCm(conteudo.AlturaPapel())) {}

    [[nodiscard]] Centesimos X(double cm) const { return DeCm(margens_.esquerda + cm); }
    [[nodiscard]] Centesimos Y(double cm) const { return altura_ - DeCm(margens_.superior + cm); }

  private:
    Margens margens_;
    Centesimos altura_;
};

}  // namespace tarvo::pdf
