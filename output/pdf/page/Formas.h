// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "output/pdf/page/Papel.h"

// The shapes of a page (lines and rectangles) in the page's own units, and their operators.
namespace tarvo::pdf {

enum class TipoForma : std::int32_t { Linha, LinhaPontilhada, Retangulo, Arredondado };

struct Area {
    Centesimos x0 = 0;
    Centesimos y0 = 0;
    Centesimos x1 = 0;
    Centesimos y1 = 0;

    [[nodiscard]] bool Toca(const Area& r) const {
        return x0 <= r.x1 && r.x0 <= x1 && y0 <= r.y1 && r.y0 <= y1;
    }
    void Unir(const Area& r);
};

// y grows upwards, as in the page; (x, y) is the lower left corner of a rectangle and the start of
// a line. No padding, so that shapes compare and hash as bytes.
struct Forma {
    TipoForma tipo = TipoForma::Linha;
    Centesimos x = 0;
    Centesimos y = 0;
    Centesimos largura = 0;
    Centesimos altura = 0;
    Centesimos raio = 0;
    std::int32_t corBorda = 0;
    std::int32_t corPreenchimento = 0;  // SemPreenchimento for none
    Centesimos espessura = 0;
    friend bool operator==(const Forma&, const Forma&) = default;

    static constexpr std::int32_t SemPreenchimento = -1;
    [[nodiscard]] Area Contorno() const;
    // Whether it paints only in that colour.
    [[nodiscard]] bool SoPinta(std::int32_t cor) const;
    // Whether it paints anything inside r.
    [[nodiscard]] bool Pinta(const Area& r) const;
};

Forma FazerForma(const Linha& linha, const Lugar& lugar);
Forma FazerForma(const Retangulo& retangulo, const Lugar& lugar);
Forma FazerForma(const RetanguloArredondado& retangulo, const Lugar& lugar);

// How a page begins: lines end square, so that those that meet in a corner close it.
constexpr std::string_view IniciarTraco = "2 J\n";

// Appends the operators of shapes, moved by (-x0, -y0), and sets colours, width and dashes where
// they change. Of the graphics state before nothing is known but that lines are solid and end
// square (IniciarTraco).
void AnexarFormas(std::string& saida, std::span<const Forma> formas, Centesimos x0, Centesimos y0);

}  // namespace tarvo::pdf
