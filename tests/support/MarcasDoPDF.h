// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tarvo::apoio {

// What is wrong with the tags of a PDF file, one line each: drawn things that are neither the
// content of one element nor decoration, elements in places where they may not stand, rows of
// unequal width, heading cells without a scope, figures without a text, references to nothing.
std::vector<std::string> FaltasDasMarcas(const std::filesystem::path& arquivo);

}  // namespace tarvo::apoio
