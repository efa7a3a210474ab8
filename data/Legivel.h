// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "data/Publico.h"

namespace tarvo {

// Text of others (names, values, paths) as a message or a terminal can show it: characters that
// would control it, begin a line or turn the direction of writing become blanks, what is no UTF-8
// "?". Of a text with more than that many characters the rest is "…".
TARVO_PUBLICO std::string Legivel(std::string_view texto,
                                  std::size_t caracteres = std::string_view::npos);

}  // namespace tarvo
