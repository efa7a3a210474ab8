// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "document/Conteudo.h"

namespace tarvo {

// For each element of a document's structure what its own texts say, in the order in which they
// were drawn, without blanks around them and with one between two; placeholders and control
// characters as TabelasDoDocumento says.
std::vector<std::string> TextosDosElementos(const Conteudo& conteudo);

}  // namespace tarvo
