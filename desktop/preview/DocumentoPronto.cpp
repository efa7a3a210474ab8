// SPDX-License-Identifier: MIT
#include "desktop/preview/DocumentoPronto.h"

#include "data/CodigosDeErros.h"
#include "desktop/ApoioQt.h"

namespace tarvo {

DocumentoPronto Preparar(const Conteudo& conteudo, const std::function<bool()>& continuar) {
    auto bytes = std::make_shared<std::string>();
    const SecaoPDF secao{.conteudo = &conteudo, .marcador = conteudo.titulo};
    auto resultado = RenderizarPDF({&secao, 1}, [&](std::string_view partes) {
        *bytes += partes;
        if (continuar && !continuar()) {
            LancarCancelado();
        }
    });
    return {.pdf = std::move(bytes),
            .cortados = std::move(resultado.cortados),
            .avisos = conteudo.avisos,
            .celulas = CelulasDeTexto(conteudo),
            .elementos = conteudo.estrutura.elementos,
            .registrado = &conteudo,
            .titulo = ParaQt(conteudo.titulo),
            .tituloResumido = conteudo.tituloResumido,
            .icone = conteudo.icone};
}

}  // namespace tarvo
