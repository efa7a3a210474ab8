#pragma once

#include <hb.h>

#include <array>
#include <bitset>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/pdf/LocalizarFonte.h"

namespace tarvo::pdf {

// Lengths of a face in thousandths of the font size.
struct MetricasFonte {
    int ascendente = 0;
    int descendente = 0;  // positive, below the baseline
    int maiuscula = 0;    // height of capitals
    int xMinimo = 0;      // box that holds every glyph
    int yMinimo = 0;
    int xMaximo = 0;
    int yMaximo = 0;
    int posicaoSublinhado = 0;  // centre of the line, negative below the baseline
    int espessuraSublinhado = 0;
    int inclinacao = 0;  // degrees

    [[nodiscard]] int AlturaLinha() const { return ascendente + descendente; }
    // What a line needs at least so that nothing of a capital or a descender stands outside.
    [[nodiscard]] int AlturaMinima() const { return maiuscula + descendente; }
};

// A face as one file uses it: widths, kerning, and which characters have been used. Text is
// written in one byte a character where WinAnsiEncoding and the face have it, otherwise by glyph
// number. All lengths are thousandths of the font size. Belongs to one rendering.
class Fonte {
  public:
    explicit Fonte(const ArquivoFonte& arquivo);

    [[nodiscard]] const MetricasFonte& Metricas() const { return metricas_; }

    // The one-byte codes of a UTF-8 text, appended; false when some character has none (or needs
    // more care), with codigos as far as it came.
    bool Codificar(std::string_view texto, std::string& codigos) const;
    int LarguraCodigos(std::string_view codigos);
    // Width of a code that follows another (0 for none), kerning included.
    int AvancoDepoisDe(std::uint8_t anterior, std::uint8_t codigo) {
        const int kern = larguraFixa_ || anterior == 0 ? 0 : Kern(anterior, codigo);
        return avancos_[codigo] + kern;
    }
    // "(text)Tj" or "[(te)12(xt)]TJ"; marks the codes as used.
    void AnexarCodigos(std::string& saida, std::string_view codigos);

    // The code of a character in this face, 0 when it has to be written by glyph number.
    [[nodiscard]] std::uint8_t Codigo(char32_t c) const;
    // Width of one character by itself.
    int Largura(char32_t c);

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
    [[nodiscard]] hb_face_t* Face() const { return face_.get(); }
    [[nodiscard]] const std::bitset<256>& CodigosUsados() const { return usados_; }
    [[nodiscard]] const std::map<hb_codepoint_t, char32_t>& GlifosUsados() const { return glifos_; }
    [[nodiscard]] int AvancoCodigo(std::uint8_t codigo) const { return avancos_[codigo]; }
    int AvancoGlifo(hb_codepoint_t glifo);
    [[nodiscard]] std::string NomePostScript() const;

  private:
    template <auto Funcao>
    struct Liberar {
        template <class T>
        void operator()(T* p) const noexcept {
            Funcao(p);
        }
    };

    void LerMetricas();
    void LerAvancos();
    int Kern(std::uint8_t a, std::uint8_t b);
    int MedirKern(std::uint8_t a, std::uint8_t b);
    [[nodiscard]] int Milesimos(int unidades) const;

    std::unique_ptr<hb_face_t, Liberar<hb_face_destroy>> face_;
    std::unique_ptr<hb_font_t, Liberar<hb_font_destroy>> fonte_;
    std::unique_ptr<hb_buffer_t, Liberar<hb_buffer_destroy>> buffer_;
    int unidades_ = 1000;
    MetricasFonte metricas_;
    std::array<std::int16_t, 256> avancos_{};  // negative where the face lacks the code
    bool larguraFixa_ = false;
    std::vector<std::int16_t> kern_;  // of each pair of codes, once asked
    std::bitset<256> usados_;
    std::map<hb_codepoint_t, char32_t> glifos_;
};

}  // namespace tarvo::pdf
