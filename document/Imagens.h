// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

#include "data/Publico.h"

// The images that reports draw, embedded in the library as they are stored in document/images.
namespace tarvo {

enum class FormatoImagem { GIF, Icone };

struct Imagem {
    std::string_view nome;       // "imgBrasaoVDColorido"
    std::string_view descricao;  // what it shows, for those who cannot see it
    FormatoImagem formato;
    int largura;  // pixels
    int altura;
    std::span<const unsigned char> bytes;  // the whole file
    // The same picture as lines and areas, which are sharp at any size: a line of entries of a PDF
    // form's dictionary, which puts it into the unit square, then its operators. Empty: none.
    std::span<const unsigned char> desenho = {};
};

// The form that only holds the images.
namespace frmFiguras TARVO_PUBLICO {
extern const Imagem imgBrasaoVDColorido;       // coat of arms in colour, every page header
extern const Imagem imgIconeR;                 // window icon of the reports
extern const Imagem imgIconeG;                 // window icon of the payment slip
extern const Imagem imgTesoura;                // scissors at the slip's cut line
extern const Imagem imgPortariaKEX_27_95;      // citation strip beside the slip
extern const Imagem imgBrasaoVDMonocromatico;  // coat of arms in black and white, slip
}  // namespace TARVO_PUBLICO

}  // namespace tarvo
