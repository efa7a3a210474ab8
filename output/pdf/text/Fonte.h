#pragma once

#include <hb.h>

#include <bitset>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "output/pdf/text/Face.h"

namespace tarvo::pdf {

// A face as one file uses it: widths, kerning, and which characters have been used. Text is
// written in one byte a character where WinAnsiEncoding and the face have it, otherwise by glyph
// number. All lengths are thousandths of the font size. Belongs to one rendering.
class Fonte {
  public:
    explicit Fonte(std::shared_ptr<const Face> face);

    [[nodiscard]] const Face& AFace() const { return *face_; }
    [[nodiscard]] const MetricasFonte& Metricas() const { return face_->Metricas(); }

    // The one-byte codes of a UTF-8 text, appended; false when some character has none (or needs
    // more care), with codigos as far as it came.
    bool Codificar(std::string_view texto, std::string& codigos) const;
    [[nodiscard]] int LarguraCodigos(std::string_view codigos) const;
    // Width of a code that follows another (0 for none), kerning included.
    [[nodiscard]] int AvancoDepoisDe(std::uint8_t anterior, std::uint8_t codigo) const {
        return face_->Avanco(codigo) + face_->Kern(anterior, codigo);
    }
    // "(text)Tj" or "[(te)12(xt)]TJ"; marks the codes as used.
    void AnexarCodigos(std::string& saida, std::string_view codigos);

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
    void MarcarGlifo(const Glifo& g);

    // What has been used, for embedding.
    [[nodiscard]] const std::bitset<256>& CodigosUsados() const { return usados_; }
    [[nodiscard]] const std::map<hb_codepoint_t, char32_t>& GlifosUsados() const { return glifos_; }

  private:
    struct Liberar {
        void operator()(hb_buffer_t* p) const noexcept { hb_buffer_destroy(p); }
    };

    std::shared_ptr<const Face> face_;
    std::unique_ptr<hb_buffer_t, Liberar> buffer_;
    std::bitset<256> usados_;
    std::map<hb_codepoint_t, char32_t> glifos_;
};

}  // namespace tarvo::pdf
