// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tarvo::pdf {

// A font file on this machine.
struct ArquivoFonte {
    std::string caminho;
    unsigned indice = 0;  // face within the file
};

// The fonts of the documents that this project draws itself.
constexpr std::array<std::string_view, 3> FontesHabituais = {"Arial", "Courier New",
                                                             "Times New Roman"};

// The file of a font by its name in the document. Arial, Courier New and Times New Roman are their
// metric twins wherever these are installed, so that a document looks the same on every machine.
// Error 20005 when neither is there, or when the licence of those that are forbids embedding.
// std::bad_alloc where memory ends; the font library itself may end the process then, so that fonts
// are best found while there is plenty.
ArquivoFonte LocalizarFonte(std::string_view nome, bool negrito, bool italico);

// The file of the installed font that has the character, may be embedded and is most like that
// one; none when there is no such font.
std::optional<ArquivoFonte> LocalizarFonteCom(char32_t c, std::string_view nome, bool negrito,
                                              bool italico);

}  // namespace tarvo::pdf
