#pragma once

#include <cstdint>

#include "data/BancoDados.h"

namespace tarvo {

// Whether the declaration's first reference date lies in 2002 or later, which decides if entry 15
// of the selection list is offered. A Null date counts as 1899. Error 3021 when the declaration
// does not exist.
bool ReferenciaDesde2002(BancoDados& BancoDados, std::int32_t NumeroDRQ);

}  // namespace tarvo
