// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "document/TabelasDoDocumento.h"

// Tables written and read back by programs that have nothing to do with this one.
namespace tarvo::apoio {

using LinhaLida = std::vector<std::string>;
using TabelaLida = std::vector<LinhaLida>;

std::string ComoCSV(const Conteudo& conteudo);
std::string ComoXLSX(const Conteudo& conteudo);

// Of a workbook each text has what it is before it ("n 1234,56", "d 31/07/2003", "s texto"), each
// table a row before its own: the sheet's name, how many cells of the first row are bold, and the
// first cell that is not frozen.
std::vector<TabelaLida> LerCSV(std::string_view bytes);
std::vector<TabelaLida> LerXLSX(std::string_view bytes);

}  // namespace tarvo::apoio
