// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "document/Conteudo.h"

// The places of a document's elements in the structure of a file.
namespace tarvo::pdf {

// The standard structure types that files have. Fields are the items of lists whose labels are the
// terms, as in a dictionary.
enum class Etiqueta : std::uint8_t {
    Nenhuma,  // the element is not in the file: what is its own, or below it, is its parent's
    Document,
    H1,
    H2,
    P,
    LI,
    Lbl,
    LBody,
    Table,
    TR,
    TH,
    TD,
    Figure,
};

constexpr std::size_t Etiquetas = static_cast<std::size_t>(Etiqueta::Figure) + 1;

std::string_view NomeDe(Etiqueta etiqueta);
bool EhCelula(Etiqueta etiqueta);

// As what an element stands in a file, and below which other one (index, before its own).
struct Colocacao {
    Etiqueta etiqueta = Etiqueta::Nenhuma;
    std::uint32_t pai = Estrutura::Raiz;
};

// Whether the document says of everything on its pages what it is.
bool TemEstrutura(const Conteudo& conteudo);

// By element. Whatever was recorded, rows stand in tables, cells in rows, labels and values in
// fields: what has no such parent stands higher up, or is a paragraph. A label in a cell is the
// cell's own content, before its value.
std::vector<Colocacao> Colocar(const Estrutura& estrutura);

}  // namespace tarvo::pdf
