#include "desktop/preview/DocumentoPronto.h"

#include "desktop/ApoioQt.h"

namespace tarvo {

DocumentoPronto Preparar(const Conteudo& conteudo) {
    auto bytes = std::make_shared<std::string>();
    auto resultado = RenderizarPDF(conteudo, *bytes);
    return {.pdf = std::move(bytes),
            .cortados = std::move(resultado.cortados),
            .celulas = CelulasDeTexto(conteudo),
            .titulo = ParaQt(conteudo.titulo),
            .tituloResumido = conteudo.tituloResumido,
            .icone = conteudo.icone};
}

}  // namespace tarvo
