// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>

// What is not found: of objects that stand somewhere it is nullptr, of values an empty optional.
namespace tarvo {

// The first element of a range whose part (all of it, a member, what a function makes of it) is
// valor.
template <class Faixa, class Valor, class Parte = std::identity>
auto* Achar(Faixa&& faixa, const Valor& valor, Parte parte = {}) {
    const auto achado = std::ranges::find(faixa, valor, parte);
    return achado == std::end(faixa) ? nullptr : std::to_address(achado);
}

template <class Faixa, class Valor, class Parte = std::identity>
bool Contem(const Faixa& faixa, const Valor& valor, Parte parte = {}) {
    return std::ranges::find(faixa, valor, parte) != std::end(faixa);
}

}  // namespace tarvo
