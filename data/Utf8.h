// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "data/Publico.h"

// Texts of others (names of files, cells of a database, arguments), which may hold any bytes.
namespace tarvo {

// How many bytes the well-formed UTF-8 character at the front of the text has; 0 where none stands.
std::size_t TamanhoDoCaractere(std::string_view texto);

TARVO_PUBLICO bool EhUtf8(std::string_view texto);

// The text, with U+FFFD in place of each byte that is no UTF-8.
std::string ComoUtf8(std::string texto);

}  // namespace tarvo
