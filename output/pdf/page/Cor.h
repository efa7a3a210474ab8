// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

// Colours 0x00BBGGRR, as documents give them.
namespace tarvo::pdf {

// A colour without the bits that are no colour.
std::int32_t SoRGB(std::int32_t cor);

// A colour with the operator for its colour space: grey when it is one ("g" or "G"), otherwise
// "rg" or "RG"; traco: for strokes.
void AnexarCor(std::string& saida, std::int32_t cor, bool traco);

}  // namespace tarvo::pdf
