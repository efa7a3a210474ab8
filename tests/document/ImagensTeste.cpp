// SPDX-License-Identifier: MIT
#include "document/Imagens.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <string>

#include "output/pdf/page/LeitorGIF.h"

// The expected figures are those that the pages were designed for: a picture of another size or
// format would be scaled out of shape, or refused by a decoder, only when a page is printed.
namespace {

using tarvo::FormatoImagem;
using tarvo::Imagem;
using testing::ElementsAre;
namespace figuras = tarvo::frmFiguras;

std::size_t Inteiro(const Imagem& imagem, std::size_t posicao, std::size_t tamanho) {
    std::size_t valor = 0;
    for (std::size_t i = tamanho; i > 0; --i) valor = valor * 256 + imagem.bytes[posicao + i - 1];
    return valor;
}

struct Esperado {
    const Imagem& imagem;
    std::string nome;
    int largura;
    int altura;
    std::size_t cores;
};

TEST(Imagens, GifsAreWholeAndHaveTheSizesAndColourTablesOfThePages) {
    const Esperado gifs[] = {
        {figuras::imgBrasaoVDColorido, "imgBrasaoVDColorido", 66, 72, 256},
        {figuras::imgTesoura, "imgTesoura", 115, 87, 256},
        {figuras::imgPortariaKEX_27_95, "imgPortariaKEX_27_95", 19, 148, 256},
        {figuras::imgBrasaoVDMonocromatico, "imgBrasaoVDMonocromatico", 549, 596, 2}};
    for (const auto& [imagem, nome, largura, altura, cores] : gifs) {
        SCOPED_TRACE(nome);
        EXPECT_EQ(imagem.nome, nome);
        EXPECT_EQ(imagem.formato, FormatoImagem::GIF);
        EXPECT_EQ(imagem.largura, largura);
        EXPECT_EQ(imagem.altura, altura);
        const tarvo::pdf::Raster lida = tarvo::pdf::LerGIF(imagem);
        EXPECT_EQ(lida.largura, largura);
        EXPECT_EQ(lida.altura, altura);
        EXPECT_EQ(lida.paleta.size(), cores);
        EXPECT_EQ(imagem.bytes.back(), ';') << "the file goes on to its end";
    }
}

TEST(Imagens, TheOneBitArmsAreBlackAndWhite) {
    EXPECT_THAT(tarvo::pdf::LerGIF(figuras::imgBrasaoVDMonocromatico).paleta,
                ElementsAre(ElementsAre(0, 0, 0), ElementsAre(255, 255, 255)));
}

TEST(Imagens, IconsHoldOnePictureOf32PixelsInSixteenColours) {
    for (const auto* icone : {&figuras::imgIconeR, &figuras::imgIconeG}) {
        SCOPED_TRACE(icone->nome);
        EXPECT_EQ(icone->formato, FormatoImagem::Icone);
        EXPECT_EQ(icone->largura, 32);
        EXPECT_EQ(icone->altura, 32);
        EXPECT_EQ(Inteiro(*icone, 0, 4), 0x10000u);  // reserved 0, type 1: icon
        EXPECT_EQ(Inteiro(*icone, 4, 2), 1u);
        EXPECT_EQ(icone->bytes[8], 16);  // colours
        const std::size_t tamanho = Inteiro(*icone, 14, 4);
        const std::size_t inicio = Inteiro(*icone, 18, 4);
        ASSERT_EQ(inicio + tamanho, icone->bytes.size());
        EXPECT_EQ(Inteiro(*icone, inicio + 4, 4), 32u);
        EXPECT_EQ(Inteiro(*icone, inicio + 8, 4), 64u);  // picture and mask
        EXPECT_EQ(Inteiro(*icone, inicio + 14, 2), 4u);  // bits a pixel
        // Header, sixteen palette entries, 32 rows of four-bit pixels, 32 rows of mask.
        EXPECT_EQ(tamanho, 40u + 16 * 4 + 32 * 16 + 32 * 4);
    }
    EXPECT_FALSE(std::ranges::equal(figuras::imgIconeR.bytes, figuras::imgIconeG.bytes));
}

}  // namespace
