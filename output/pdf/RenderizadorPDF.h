// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/Publico.h"
#include "document/Conteudo.h"

// The one rendering of report documents, which preview, printer and archive share: a PDF/A-2a and
// PDF/UA-1 file, whose tags say what its pages show, or without them a PDF/A-2u file.
namespace tarvo {

// A text that did not fit its box even at 60 % and was cut with "…", or that has a character that
// no installed font has and "?" stands for.
struct TextoCortado {
    std::size_t pagina = 0;  // from 1, in the file
    Caixa caixa;             // cm, as recorded
    std::string texto;       // whole
};

struct ResultadoPDF {
    std::size_t paginas = 0;
    std::vector<TextoCortado> cortados;  // in the order of the pages
};

// One document of a file; a file of several gets an outline (bookmarks) of their titles with the
// sections below, and page numbering starts anew with each.
struct SecaoPDF {
    const Conteudo* conteudo = nullptr;
    std::string marcador;  // outline entry
};

struct OpcoesPDF {
    // Leaves out the tags: smaller, and unreadable for screen readers. So is a file with a document
    // that does not say of all that it shows what it is.
    bool semEstrutura = false;
    // For a file that pictures of so many pixels an inch are made of: frames are moved onto their
    // pixels, so that those of one thickness look alike. 0 for none.
    int dpi = 0;
};

// Takes the bytes of the file in order; throws to stop the rendering.
using DestinoPDF = std::function<void(std::string_view bytes)>;

// Finds and reads the fonts of the project's own reports, for all threads of the process. To be
// called before threads render at the same time, while memory is plenty: the font library ends or
// slows down a process that it meets short of it. A font that is missing stays the error of the
// rendering that uses it.
TARVO_PUBLICO void PrepararFontes();

// Error 20005 when a font is missing (names the package that brings it).
TARVO_PUBLICO ResultadoPDF RenderizarPDF(std::span<const SecaoPDF> secoes,
                                         const DestinoPDF& destino, const OpcoesPDF& opcoes = {});
TARVO_PUBLICO ResultadoPDF RenderizarPDF(const Conteudo& conteudo, std::string& bytes,
                                         const OpcoesPDF& opcoes = {});
// The old file stays whole until the new one is; a link of that name is replaced, never followed.
// Errors 76, 75, 70, 67, 61 and 57 for folder, what must not be replaced (a folder, a database,
// what is no regular file), permission, too many open files, space and device.
TARVO_PUBLICO ResultadoPDF GravarPDF(const Conteudo& conteudo, const std::filesystem::path& arquivo,
                                     const OpcoesPDF& opcoes = {});
TARVO_PUBLICO ResultadoPDF GravarPDF(std::span<const SecaoPDF> secoes,
                                     const std::filesystem::path& arquivo,
                                     const OpcoesPDF& opcoes = {});

}  // namespace tarvo
