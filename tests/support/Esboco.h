// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "document/Conteudo.h"

namespace tarvo::apoio {

// What a document says to somebody who does not see it, in the reader's order, a line for each
// title ("# "), heading ("## "), remark, picture ("[Brasão]"), field ("label: value") and row of a
// table: what the row is, then its cells, "| *5.101* |2x3 Outras": a heading between stars, the
// columns and rows that a cell covers where it is more than one.
std::vector<std::string> Esboco(const Conteudo& conteudo);

}  // namespace tarvo::apoio
