// SPDX-License-Identifier: MIT
#include "output/pdf/text/Haste.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "data/ObjetoDeC.h"

namespace tarvo::pdf {

namespace {

// Where an outline crosses a level line.
struct Cruzamentos {
    float y = 0;
    std::vector<float> x;
};

void Cruzar(hb_draw_funcs_t* /*funcoes*/, void* dados, hb_draw_state_t* estado, float x, float y,
            void* /*usuario*/) {
    auto& cruzamentos = *static_cast<Cruzamentos*>(dados);
    const float antes = estado->current_y - cruzamentos.y;
    const float depois = y - cruzamentos.y;
    if ((antes < 0) != (depois < 0)) {
        cruzamentos.x.push_back(estado->current_x +
                                (x - estado->current_x) * antes / (antes - depois));
    }
}

// A curve crosses where its chord does: the middle of the letter has none but in slanted faces.
void CruzarCurva(hb_draw_funcs_t* funcoes, void* dados, hb_draw_state_t* estado, float /*cx*/,
                 float /*cy*/, float x, float y, void* usuario) {
    Cruzar(funcoes, dados, estado, x, y, usuario);
}

void CruzarCubica(hb_draw_funcs_t* funcoes, void* dados, hb_draw_state_t* estado, float /*cx1*/,
                  float /*cy1*/, float /*cx2*/, float /*cy2*/, float x, float y, void* usuario) {
    Cruzar(funcoes, dados, estado, x, y, usuario);
}

}  // namespace

int MedirHaste(hb_font_t* fonte) {
    hb_codepoint_t letra = 0;
    hb_glyph_extents_t caixa{};
    if (hb_font_get_nominal_glyph(fonte, U'l', &letra) == 0 ||
        hb_font_get_glyph_extents(fonte, letra, &caixa) == 0) {
        return 0;
    }
    const ObjetoDeC<hb_draw_funcs_destroy> funcoes(hb_draw_funcs_create());
    hb_draw_funcs_set_line_to_func(funcoes.get(), Cruzar, nullptr, nullptr);
    hb_draw_funcs_set_quadratic_to_func(funcoes.get(), CruzarCurva, nullptr, nullptr);
    hb_draw_funcs_set_cubic_to_func(funcoes.get(), CruzarCubica, nullptr, nullptr);
    Cruzamentos cruzamentos;
    cruzamentos.y = static_cast<float>(caixa.y_bearing) + static_cast<float>(caixa.height) / 2;
    hb_font_get_glyph_shape(fonte, letra, funcoes.get(), &cruzamentos);
    auto& x = cruzamentos.x;
    std::sort(x.begin(), x.end());
    return x.size() < 2 ? 0 : static_cast<int>(std::lround(x[1] - x[0]));
}

}  // namespace tarvo::pdf
