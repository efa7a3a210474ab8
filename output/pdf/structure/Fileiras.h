// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace tarvo::pdf {

// How many columns and rows a cell covers.
struct Vao {
    int colunas = 1;
    int linhas = 1;
    friend bool operator==(const Vao&, const Vao&) = default;
};
using Fileira = std::vector<Vao>;

// Makes the rows of a table cover the same columns, as readers need that tell where a cell stands:
// a row that is too short ends in a wider cell, and no cell reaches over another one or below the
// last row.
void Igualar(std::vector<Fileira>& fileiras);

}  // namespace tarvo::pdf
