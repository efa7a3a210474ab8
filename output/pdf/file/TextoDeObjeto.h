// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tarvo::pdf {

// A text string of a PDF object or a content stream: the characters themselves where each is one
// byte of PDFDocEncoding, otherwise UTF-16 in hexadecimal.
void AnexarTexto(std::string& saida, std::string_view utf8);
std::string TextoDeObjeto(std::string_view utf8);

}  // namespace tarvo::pdf
