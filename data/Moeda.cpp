#include "data/Moeda.h"

#include <cmath>

#include "data/CodigosDeErros.h"
#include "data/Formatos.h"

namespace tarvo {

Moeda Moeda::DeDouble(double valor) {
    if (std::isnan(valor)) {
        LancarTipoIncompativel("NaN", "Moeda");
    }
    // Extended precision keeps the product of the scale exact enough to see a true half.
    const long double escalado = static_cast<long double>(valor) * Escala;
    const long double arredondado = std::nearbyint(escalado);
    if (!(arredondado >= -9223372036854775808.0L && arredondado < 9223372036854775808.0L)) {
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
