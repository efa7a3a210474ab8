// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdlib>

#include "data/CodigosDeErros.h"
#include "output/pdf/page/LeitorGIF.h"

// Any bytes as a GIF picture: refused with the error for that, or read into a raster that is whole.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t tamanho) {
    using namespace tarvo;
    const Imagem imagem{"fuzz", "", FormatoImagem::GIF, 1, 1, {bytes, tamanho}};
    try {
        const pdf::Raster raster = pdf::LerGIF(imagem);
        const auto cores = raster.paleta.size();
        const auto pontos =
            static_cast<std::size_t>(raster.largura) * static_cast<std::size_t>(raster.altura);
        if (pontos == 0 || raster.pontos.size() != pontos || cores == 0 || cores > 256 ||
            std::ranges::any_of(raster.pontos, [cores](auto ponto) { return ponto >= cores; }) ||
            static_cast<std::size_t>(raster.transparente.value_or(0)) >= cores) {
            std::abort();
        }
    } catch (const Erro& erro) {
        if (erro.Numero() != NumeroErro::ChamadaInvalida) {
            std::abort();
        }
    }
    return 0;
}
