// SPDX-License-Identifier: MIT
#include "output/pdf/page/LeitorGIF.h"

#include <gif_lib.h>

#include <algorithm>
#include <span>
#include <string>

#include "data/CodigosDeErros.h"
#include "data/ObjetoDeC.h"

namespace tarvo::pdf {

namespace {

void Fechar(GifFileType* gif) {
    int erro = 0;
    DGifCloseFile(gif, &erro);
}

int LerBytes(GifFileType* gif, GifByteType* destino, int quantos) {
    auto& resto = *static_cast<std::span<const unsigned char>*>(gif->UserData);
    const auto n = std::min(resto.size(), static_cast<std::size_t>(quantos));
    std::copy_n(resto.begin(), n, destino);
    resto = resto.subspan(n);
    return static_cast<int>(n);
}

[[noreturn]] void LancarIlegivel(const Imagem& imagem) {
    throw Erro(NumeroErro::ChamadaInvalida,
               "A figura \"" + std::string(imagem.nome) + "\" não é uma imagem GIF legível.");
}

// Places a picture smaller than the logical screen; what it leaves free shows the fill colour.
void Colocar(const GifImageDesc& quadro, const GifByteType* pontos, std::uint8_t fundo, Raster& r) {
    r.pontos.assign(static_cast<std::size_t>(r.largura) * static_cast<std::size_t>(r.altura),
                    fundo);
    const int largura = std::min(quadro.Width, r.largura - quadro.Left);
    for (int y = 0; y < quadro.Height && quadro.Top + y < r.altura && largura > 0; ++y) {
        std::copy_n(pontos + static_cast<std::ptrdiff_t>(y) * quadro.Width, largura,
                    r.pontos.begin() + static_cast<std::ptrdiff_t>(quadro.Top + y) * r.largura +
                        quadro.Left);
    }
}

}  // namespace

Raster LerGIF(const Imagem& imagem) {
    auto resto = imagem.bytes;
    int erro = 0;
    const ObjetoDeC<Fechar> gif(
        imagem.formato == FormatoImagem::GIF ? DGifOpen(&resto, LerBytes, &erro) : nullptr);
    if (gif == nullptr || DGifSlurp(gif.get()) != GIF_OK || gif->ImageCount < 1) {
        LancarIlegivel(imagem);
    }
    const SavedImage& quadro = gif->SavedImages[0];
    const ColorMapObject* const cores =
        quadro.ImageDesc.ColorMap != nullptr ? quadro.ImageDesc.ColorMap : gif->SColorMap;
    Raster raster;
    raster.largura = gif->SWidth;
    raster.altura = gif->SHeight;
    constexpr std::int64_t MaximoDePontos = std::int64_t{64} * 1024 * 1024;
    const auto pontos = std::int64_t{raster.largura} * raster.altura;
    if (cores == nullptr || pontos < 1 || pontos > MaximoDePontos) {
        LancarIlegivel(imagem);
    }
    for (int i = 0; i < cores->ColorCount; ++i) {
        const auto& cor = cores->Colors[i];
        raster.paleta.push_back({cor.Red, cor.Green, cor.Blue});
    }
    GraphicsControlBlock controle{};
    if (DGifSavedExtensionToGCB(gif.get(), 0, &controle) == GIF_OK &&
        controle.TransparentColor >= 0 && controle.TransparentColor < cores->ColorCount) {
        raster.transparente = controle.TransparentColor;
    }
    Colocar(quadro.ImageDesc, quadro.RasterBits,
            static_cast<std::uint8_t>(raster.transparente.value_or(gif->SBackGroundColor)), raster);
    const auto maior = *std::max_element(raster.pontos.begin(), raster.pontos.end());
    if (maior >= raster.paleta.size()) {
        LancarIlegivel(imagem);
    }
    return raster;
}

}  // namespace tarvo::pdf
