// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>
#include <vector>

// Which pages of a document are printed, and in which order. Pages count from 1.
namespace tarvo {

enum class Folhas { Todas, Impares, Pares };

// The pages of a list such as "1,3-5,9-" in its order, an open end going to the last page; all of
// them for an empty text. Nothing when the list is not understood or names a page that is not
// there.
std::optional<std::vector<int>> LerPaginas(std::string_view texto, int total);

// Those of the pages that are asked for, the last one first when inversa.
std::vector<int> Filtrar(std::vector<int> paginas, Folhas folhas, bool inversa);

}  // namespace tarvo
