// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "data/Data.h"
#include "data/Moeda.h"

// A field's value as the database hands it out: a typed value, or Null.
namespace tarvo {

using Nulo = std::monostate;
// Texts are UTF-8. A double occurs only where a query computes one.
using Valor = std::variant<Nulo, std::int32_t, double, Moeda, Data, bool, std::string>;

inline bool EhNulo(const Valor& valor) {
    return std::holds_alternative<Nulo>(valor);
}

}  // namespace tarvo
