// SPDX-License-Identifier: MIT
#pragma once

#include "document/Conteudo.h"
#include "output/pdf/text/Comprimentos.h"

namespace tarvo::pdf {

// A box on the paper by its upper left corner, y upwards.
struct Lugar {
    Centesimos x = 0;
    Centesimos topo = 0;
    Centesimos largura = 0;
    Centesimos altura = 0;
};

// Where the places of a document (cm from the printable area's upper left corner) are on its paper
// (from the lower left corner, y upwards). Of what goes on farther than any page reaches, the part
// that no page can show is left away.
class Papel {
  public:
    explicit Papel(const Conteudo& conteudo)
        : margens_(conteudo.margens), altura_(DeCm(conteudo.AlturaPapel())) {}

    [[nodiscard]] Lugar LugarDe(const Retangulo& r) const { return DaCaixa(Recortada(r.caixa)); }
    [[nodiscard]] Lugar LugarDe(const RetanguloArredondado& r) const {
        return DaCaixa(Recortada(r.caixa));
    }
    // From its start to its end: sizes may be negative.
    [[nodiscard]] Lugar LugarDe(const Linha& linha) const;
    // A box so large that a text aligned in it stands where it should.
    [[nodiscard]] Lugar LugarDe(const Texto& texto) const;
    [[nodiscard]] Lugar LugarDe(const Figura& figura) const;

  private:
    [[nodiscard]] Lugar DaCaixa(const Caixa& caixa) const;
    [[nodiscard]] static Caixa Recortada(const Caixa& caixa);

    Margens margens_;
    Centesimos altura_;
};

}  // namespace tarvo::pdf
