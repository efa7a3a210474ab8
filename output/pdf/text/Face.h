// SPDX-License-Identifier: MIT
#pragma once

#include <hb.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/ObjetoDeC.h"
#include "output/pdf/text/LocalizarFonte.h"

namespace tarvo::pdf {

// Of every text, whatever the process's locale; looked up once for all threads.
inline hb_language_t Lingua() {
    static const hb_language_t lingua = hb_language_from_string("pt", -1);
    return lingua;
}

// Lengths of a face in thousandths of the font size.
struct MetricasFonte {
    int ascendente = 0;
    int descendente = 0;  // positive, below the baseline
    int maiuscula = 0;    // height of capitals
    int xMinimo = 0;      // box that holds every glyph
    int yMinimo = 0;
    int xMaximo = 0;
    int yMaximo = 0;
    int posicaoSublinhado = 0;  // upper edge of the line, negative below the baseline
    int espessuraSublinhado = 0;
    int inclinacao = 0;  // degrees
    int haste = 0;       // width of upright stems
    bool larguraUnica = false;
    bool serifas = false;
    bool manuscrita = false;

    [[nodiscard]] int AlturaLinha() const { return ascendente + descendente; }
    // What a line needs at least so that nothing of a capital or a descender stands outside.
    [[nodiscard]] int AlturaMinima() const { return maiuscula + descendente; }
};

// A face of the machine: its measures, advances and kerning pairs. Read once in a process and then
// shared by all renderings, on any thread. All lengths are thousandths of the font size.
class Face {
  public:
    // The face of a font by its name in the document (see LocalizarFonte). Error 20005.
    static std::shared_ptr<const Face> Obter(std::string_view nome, bool negrito, bool italico);
    // Obtains all faces of FontesHabituais; those that are missing stay an error of their use.
    static void ObterHabituais();
    // An installed face that has the character, most like that one; none when no face has it.
    static std::shared_ptr<const Face> ObterCom(char32_t c, std::string_view nome, bool negrito,
                                                bool italico);
    explicit Face(const ArquivoFonte& arquivo);

    [[nodiscard]] hb_face_t* Hb() const { return face_.get(); }
    [[nodiscard]] hb_font_t* HbFonte() const { return fonte_.get(); }
    [[nodiscard]] const MetricasFonte& Metricas() const { return metricas_; }
    // Negative where the face lacks the code.
    [[nodiscard]] int Avanco(std::uint8_t codigo) const { return avancos_[codigo]; }
    // Whether it can draw the character, by itself or from its parts.
    [[nodiscard]] bool Tem(char32_t c) const;
    [[nodiscard]] int AvancoGlifo(hb_codepoint_t glifo) const;
    // Between two codes; 0 when there is none before.
    [[nodiscard]] int Kern(std::uint8_t anterior, std::uint8_t codigo) const {
        return kern_.empty() || anterior == 0 ? 0 : KernDoPar(anterior, codigo);
    }
    [[nodiscard]] int Milesimos(int unidades) const;
    [[nodiscard]] std::string NomePostScript() const;

  private:
    void LerMetricas();
    void LerAvancos();
    [[nodiscard]] int KernDoPar(std::uint8_t a, std::uint8_t b) const;
    [[nodiscard]] int MedirKern(std::uint8_t a, std::uint8_t b) const;

    ObjetoDeC<hb_face_destroy> face_;
    ObjetoDeC<hb_font_destroy> fonte_;
    int unidades_ = 1000;
    MetricasFonte metricas_;
    std::array<std::int16_t, 256> avancos_{};
    // Of each pair of codes, once asked; empty in a face of one width. Threads that ask at the same
    // time find the same value.
    mutable std::vector<std::atomic<std::int16_t>> kern_;
};

}  // namespace tarvo::pdf
