// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "system/files/Arquivos.h"

namespace tarvo {

// Pictures of a PDF's pages, one file a page: "NOME-001.png" and on in the folder, each replaced as
// a whole; dpi: pixels an inch. Pages of the same name that follow the last one, as a longer
// document left them, are removed. pastaDeEspera: see GravacaoSegura. Returns the files written.
// When a page fails, none is left of this call: no page has a name before the last is written, so
// that each is an open file until then. Errors 5 for bytes that are no PDF and for a dpi outside 10
// to 2400, 57 for a page that cannot be drawn, and those of GravacaoSegura.
std::vector<ArquivoGravado> GravarPNG(std::string_view pdf, const std::filesystem::path& pasta,
                                      std::string_view nome, int dpi,
                                      const std::filesystem::path& pastaDeEspera = {});

// "NOME-001.png", for a page counted from 1.
std::string NomeDaPaginaPNG(std::string_view nome, std::size_t pagina);

}  // namespace tarvo
