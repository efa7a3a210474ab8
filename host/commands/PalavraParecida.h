// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

namespace tarvo::host {

// Of the words, the one that was most likely meant by a mistyped one: it takes the fewest letters
// left out, put in, changed or swapped with their neighbour, or is the only one that begins so.
// Leading hyphens and capital letters make no difference. Empty when none is near.
std::string_view PalavraParecida(std::string_view digitada,
                                 std::span<const std::string_view> palavras);

// "não há o comando "exportr"; o mais parecido é exportar", as UsoErrado. tipo: with its article;
// parecida, and comando, where there is no such word, may be empty.
[[noreturn]] void RecusarPalavra(std::string_view tipo, std::string_view palavra,
                                 std::string_view parecida, std::string_view comando = {});

}  // namespace tarvo::host
