// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "data/CodigosDeErros.h"

namespace tarvo::host {

// The error with its number, where it has happened ("10 - Apuração ...", a file's name) before its
// description, and what to do behind it where there is something to do. What the user has
// cancelled needs no explanation.
Erro Explicar(const Erro& erro, std::string_view onde);

}  // namespace tarvo::host
