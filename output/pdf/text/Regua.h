// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "output/pdf/text/Fonte.h"

namespace tarvo::pdf {

// A run of characters that are written the same way: by code, or by glyph number of a face.
struct Trecho {
    std::u32string_view texto;
    std::shared_ptr<const Face> face;  // none: by the font's codes
};
std::vector<Trecho> DividirEmTrechos(Fonte& fonte, std::u32string_view texto);

// A line of text as it is set.
struct LinhaComposta {
    std::u32string texto;
    std::string codigos;       // the same in one-byte codes; empty when some character has none
    std::int64_t largura = 0;  // thousandths of the font size, not condensed
    bool separada = false;     // a blank or line break stood between it and the next line
};

// Measures any part of a text: each answer is a difference of two sums made once, so that wrapping
// a text takes time in proportion to its length.
class Regua {
  public:
    // The text must outlive the ruler. Line breaks in it have no width.
    Regua(Fonte& fonte, std::u32string_view texto);

    [[nodiscard]] std::u32string_view Texto() const { return texto_; }
    // Whether some character is in no installed face.
    [[nodiscard]] bool FaltaCaractere() const { return falta_; }
    // Thousandths of the font size, of the characters from inicio up to fim.
    [[nodiscard]] std::int64_t Largura(std::size_t inicio, std::size_t fim) const;
    // The end of the most characters from inicio that fit, at least one; a letter keeps its
    // accents.
    [[nodiscard]] std::size_t OndeCabe(std::size_t inicio, std::size_t fim, int limite) const;
    [[nodiscard]] LinhaComposta Linha(std::size_t inicio, std::size_t fim) const;
    // The line cut so that it fits with "…" at its end.
    [[nodiscard]] LinhaComposta LinhaCortada(std::size_t inicio, std::size_t fim, int limite) const;

  private:
    bool MedirCodigos();
    void MedirTrechos();
    void MedirGlifos(const Trecho& trecho, std::size_t inicio, std::vector<int>& kern);

    Fonte& fonte_;
    std::u32string_view texto_;
    std::string codigos_;  // of the whole text; empty when some character has none
    bool falta_ = false;
    std::vector<int> propria_;        // width of each character by itself
    std::vector<std::int64_t> soma_;  // up to each, kerning with the one before included
};

}  // namespace tarvo::pdf
