// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tarvo {

// The script (UTF-8, SQLite's dialect) that fills an empty declaration database with the fictional
// example: six taxpayers and ten declarations. The text lives as long as the program.
std::string_view ScriptDeExemplo();

}  // namespace tarvo
