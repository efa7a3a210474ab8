#pragma once

#include <hb.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/ObjetoDeC.h"
#include "output/pdf/text/Face.h"

namespace tarvo::pdf {

// A face as one rendering sets text in it: codes, widths and shaping. Text is kept in one byte a
// character where WinAnsiEncoding and the face have it, otherwise shaped glyph by glyph. All
// lengths are thousandths of the font size. Belongs to one thread.
class Fonte {
  public:
    explicit Fonte(std::shared_ptr<const Face> face);

    [[nodiscard]] const Face& FaceUsada() const { return *face_; }
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
    // Width of one character by itself.
    [[nodiscard]] int Largura(char32_t c) const;

    // Glyphs of a text that has no one-byte codes, shaped.
    struct Glifo {
        hb_codepoint_t glifo = 0;
        char32_t unicode = 0;  // of its cluster's first character; 0 for a cluster's other glyphs
        int avanco = 0;
        int dx = 0;
        int dy = 0;
    };
    std::vector<Glifo> Formar(std::u32string_view texto);

  private:
    std::shared_ptr<const Face> face_;
    ObjetoDeC<hb_buffer_destroy> buffer_;
};

}  // namespace tarvo::pdf
