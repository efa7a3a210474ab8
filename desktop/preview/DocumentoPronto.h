// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/preview/CelulasDeTexto.h"
#include "output/pdf/RenderizadorPDF.h"

namespace tarvo {

// A document rendered for its preview and for the printer.
struct DocumentoPronto {
    std::shared_ptr<const std::string> pdf;
    std::vector<TextoCortado> cortados;
    std::vector<std::string> avisos;
    CelulasDeTexto celulas;
    std::vector<Elemento> elementos;       // what the cells belong to
    const Conteudo* registrado = nullptr;  // what it was made from, as it is by now
    QString titulo;
    std::string tituloResumido;
    const Imagem* icone = nullptr;

    // Of the element that Estrutura's owners name; a paragraph for decoration.
    [[nodiscard]] TipoElemento TipoDoElemento(std::uint32_t dono) const {
        return dono < elementos.size() ? elementos[dono].tipo : TipoElemento::Paragrafo;
    }
};

// conteudo outlives the use of registrado. Asks continuar now and then, when there is one. Errors
// 20005 when a font is missing, 18 when continuar has said false.
DocumentoPronto Preparar(const Conteudo& conteudo, const std::function<bool()>& continuar = {});

}  // namespace tarvo
