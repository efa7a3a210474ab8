// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

#include "data/BancoDados.h"

// The totals of one declaration that several reports need. Nothing to add up is 0; so are Nulls.
namespace tarvo {

// One amount column of the CFOP details, over the CFOP groups given by their digits ("567").
Moeda SomarCFOPs(BancoDados& banco, std::string_view coluna, std::string_view grupos,
                 std::int32_t NumeroDRQ);
// The sub-items of one item ("002"), either of own operations or of tax substitution.
Moeda SomarSubitens(BancoDados& banco, std::string_view item, bool opProprias,
                    std::int32_t NumeroDRQ);

}  // namespace tarvo
