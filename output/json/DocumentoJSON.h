// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

#include "data/Publico.h"
#include "document/Conteudo.h"

// The JSON form of a recorded document, for programs that compare or process pages.
namespace tarvo {

// Writes one object: the class, the titles, the icon, the orientation, the margins (left, right,
// top, bottom; cm), and a list per page of the drawing operations in the order of the calls, each
// a list of the operation's name and all its arguments. Reading a number back gives the same
// double. Bytes of a text that are not UTF-8 become U+FFFD. Error 57 when the stream fails.
TARVO_PUBLICO void EscreverJSON(std::string_view classe, const Conteudo& conteudo,
                                std::ostream& saida);

// One drawing operation in the same form.
TARVO_PUBLICO std::string OperacaoJSON(const Conteudo& conteudo, const Primitiva& primitiva);

}  // namespace tarvo
