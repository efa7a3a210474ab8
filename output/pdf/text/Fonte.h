// SPDX-License-Identifier: MIT
#pragma once

#include <hb.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/ObjetoDeC.h"
#include "output/pdf/text/Face.h"

namespace tarvo::pdf {

// A face as one rendering sets text in it: codes, widths and shaping. Text is kept in one byte a
// character where WinAnsiEncoding and the face have it, otherwise shaped glyph by glyph. All
// lengths are thousandths of the font size. Belongs to one thread.
class Fonte {
  public:
    // The face of a font by its name in the document. Error 20005.
    Fonte(std::string_view nome, bool negrito, bool italico);
    // A face by itself: nothing stands in for what it lacks.
    explicit Fonte(std::shared_ptr<const Face> face);

    [[nodiscard]] const Face& FaceUsada() const { return *face_; }
    [[nodiscard]] const std::shared_ptr<const Face>& FacePropria() const { return face_; }
    [[nodiscard]] const MetricasFonte& Metricas() const { return face_->Metricas(); }

    // The one-byte codes of a UTF-8 text, appended; false when some character has none (or needs
    // more care), with codigos as far as it came.
    bool Codificar(std::string_view texto, std::string& codigos) const;
    [[nodiscard]] int LarguraCodigos(std::string_view codigos) const;
    // Width of a code that follows another (0 for none), kerning included.
    [[nodiscard]] int AvancoDepoisDe(std::uint8_t anterior, std::uint8_t codigo) const {
        return face_->Avanco(codigo) + face_->Kern(anterior, codigo);
    }
    // The code of a character in this face, 0 when it has to be written by glyph number.
    [[nodiscard]] std::uint8_t Codigo(char32_t c) const;
    // The face that draws a character: this one, or the installed one most like it that has the
    // character; none when no face has it, which "?" then stands for.
    const std::shared_ptr<const Face>& FaceDe(char32_t c);
    // Width of one character by itself.
    int Largura(char32_t c);

    // Glyphs of a text in a face, shaped; "?" for what the face lacks.
    struct Glifo {
        hb_codepoint_t glifo = 0;
        std::size_t lugar = 0;  // in the text, of its cluster's first character
        char32_t unicode = 0;   // of its cluster's first character; 0 for a cluster's other glyphs
        int avanco = 0;
        int dx = 0;
        int dy = 0;
    };
    std::vector<Glifo> Formar(std::u32string_view texto, const Face& face);

  private:
    std::shared_ptr<const Face> face_;
    // How the face was asked for; without a name when it was not.
    std::string nome_;
    bool negrito_ = false;
    bool italico_ = false;
    std::unordered_map<char32_t, std::shared_ptr<const Face>> substitutas_;
    ObjetoDeC<hb_buffer_destroy> buffer_;
};

}  // namespace tarvo::pdf
