// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "output/pdf/file/FontesPDF.h"
#include "output/pdf/page/MarcasDaPagina.h"
#include "output/pdf/text/Comprimentos.h"

namespace tarvo::pdf {

// How a line of text is set: the parameters of a PDF's text state that differ between texts.
struct EstadoDeTexto {
    FonteDoArquivo* fonte = nullptr;
    Centesimos corpo = 0;  // font size
    int condensacao = 0;   // horizontal, hundredths of a per cent
    std::int32_t cor = 0;  // 0x00BBGGRR
};

// The operators of a page's texts and pictures: sets font, colour and width only where they
// change, and moves from line to line by differences.
class OperadoresDePagina {
  public:
    OperadoresDePagina(FontesPDF& fontes, MarcasDaPagina& marcas)
        : fontes_(fontes), marcas_(marcas) {}

    // For a new page.
    void Reiniciar();
    // A line from its start (x, y) on the baseline; codigos in the font's one-byte code.
    void EscreverCodigos(const EstadoDeTexto& estado, Centesimos x, Centesimos y,
                         std::string_view codigos);
    // The same for any text: shaped where some character has no code.
    void EscreverTexto(const EstadoDeTexto& estado, Centesimos x, Centesimos y,
                       std::u32string_view texto);
    // What is written in between stands for this text (UTF-8), which search and copying find; it
    // stays in one text object.
    void AbrirTextoReal(std::string_view texto);
    void FecharTextoReal();
    void Sublinhar(const EstadoDeTexto& estado, Centesimos x, Centesimos y, Centesimos largura);
    // A picture in the box with the lower left corner (x, y).
    void DesenharFigura(std::string_view nome, Centesimos x, Centesimos y, Centesimos largura,
                        Centesimos altura);
    // Appends what has been written since the last call to saida.
    void Entregar(std::string& saida);

  private:
    enum class Modo : std::uint8_t { Codigos, Glifos };

    void AbrirTexto();
    void Posicionar(const EstadoDeTexto& estado, Centesimos x, Centesimos y);
    void EscolherFonte(const EstadoDeTexto& estado, Modo modo);
    void EscolherCor(std::int32_t cor);
    void Fechar();
    void AnexarCodigos(FonteDoArquivo& fonte, std::string_view codigos);
    void AnexarGlifos(FonteDoArquivo& fonte, Centesimos corpo, std::u32string_view texto);

    FontesPDF& fontes_;
    MarcasDaPagina& marcas_;
    std::string operadores_;
    std::string codigos_;
    // The graphics state as the operators so far leave it.
    bool aberto_ = false;  // within a text object
    Centesimos x_ = 0;     // start of its last line
    Centesimos y_ = 0;
    const FonteDoArquivo* fonte_ = nullptr;
    Modo modo_ = Modo::Codigos;
    Centesimos corpo_ = 0;
    int condensacao_ = 0;
    std::int32_t cor_ = 0;
};

}  // namespace tarvo::pdf
