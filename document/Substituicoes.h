// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "data/Publico.h"

namespace tarvo {

// What the placeholders in a text stand for.
struct Substituicoes {
    std::string data;     // %%D
    std::string hora;     // %%H
    std::string pagina;   // %%p
    std::string paginas;  // %%P
};

// The text with its placeholders replaced: texto itself when it has none, otherwise kept in espaco.
TARVO_PUBLICO std::string_view Substituir(std::string_view texto, const Substituicoes& por,
                                          std::string& espaco);

}  // namespace tarvo
