#pragma once

#include <QString>
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

// Error 20005 when a font is missing.
DocumentoPronto Preparar(const Conteudo& conteudo);

}  // namespace tarvo
