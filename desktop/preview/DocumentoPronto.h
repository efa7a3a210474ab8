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
    CelulasDeTexto celulas;
    QString titulo;
    std::string tituloResumido;
    const Imagem* icone = nullptr;
};

// Asks continuar now and then, when there is one. Errors 20005 when a font is missing, 18 when
// continuar has said false.
DocumentoPronto Preparar(const Conteudo& conteudo, const std::function<bool()>& continuar = {});

}  // namespace tarvo
