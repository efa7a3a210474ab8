// SPDX-License-Identifier: MIT
#include "data/Moeda.h"

#include <cmath>

#include "data/CodigosDeErros.h"
#include "data/Formatos.h"

namespace tarvo {

Moeda Moeda::DeDouble(double valor) {
    if (std::isnan(valor)) {
        LancarTipoIncompativel("NaN", "Moeda");
    }
    // The product in double precision sees the halves that the decimal number has: 0.00005 is one.
    const double arredondado = std::nearbyint(valor * static_cast<double>(Escala));
    if (!(arredondado >= -9223372036854775808.0 && arredondado < 9223372036854775808.0)) {
        LancarEstouro("o valor não cabe em Moeda");
    }
    return DeDecimosMilesimos(static_cast<std::int64_t>(arredondado));
}

Moeda Moeda::DeInteiro(std::int64_t valor) {
    std::int64_t unidades = 0;
    if (__builtin_mul_overflow(valor, Escala, &unidades)) {
        LancarEstouro("o valor não cabe em Moeda");
    }
    return DeDecimosMilesimos(unidades);
}

Moeda Moeda::DeTexto(std::string_view texto) {
    return DeDecimosMilesimos(LerDecimal(texto, 4, "Moeda"));
}

double Moeda::ParaDouble() const {
    return static_cast<double>(unidades_) / static_cast<double>(Escala);
}

Moeda operator+(Moeda a, Moeda b) {
    Moeda soma;
    if (__builtin_add_overflow(a.unidades_, b.unidades_, &soma.unidades_)) {
        LancarEstouro("a soma não cabe em Moeda");
    }
    return soma;
}

Moeda operator-(Moeda a, Moeda b) {
    Moeda diferenca;
    if (__builtin_sub_overflow(a.unidades_, b.unidades_, &diferenca.unidades_)) {
        LancarEstouro("a diferença não cabe em Moeda");
    }
    return diferenca;
}

}  // namespace tarvo
