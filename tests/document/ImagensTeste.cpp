#include "document/Imagens.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include <gmock/gmock.h>

// The expected figures are those that the pages were designed for: a picture of another size or
// format would be scaled out of shape, or refused by a decoder, only when a page is printed.
namespace {

using tarvo::FormatoImagem;
using tarvo::Imagem;
namespace figuras = tarvo::frmFiguras;

std::size_t Inteiro(const Imagem& imagem, std::size_t posicao, std::size_t tamanho) {
    std::size_t valor = 0;
    for (std::size_t i = tamanho; i > 0; --i) valor = valor * 256 + imagem.bytes[posicao + i - 1];
    return valor;
}

constexpr std::size_t fimDoCabecalho = 13;

std::size_t EntradasDaTabela(const Imagem& gif) {
    const std::size_t campo = gif.bytes[10];
    return (campo & 0x80) != 0 ? std::size_t{2} << (campo & 7) : 0;
}

// Follows the data blocks from the picture's descriptor; the position after the closing byte.
std::size_t FimDoGIF(const Imagem& gif) {
    std::size_t p = fimDoCabecalho + 3 * EntradasDaTabela(gif);
    if (gif.bytes[p] != ',' || Inteiro(gif, p + 5, 4) != Inteiro(gif, 6, 4)) return 0;
    p += 11;  // descriptor and code size
    while (p < gif.bytes.size() && gif.bytes[p] != 0) p += gif.bytes[p] + std::size_t{1};
    return p + 1 < gif.bytes.size() && gif.bytes[p + 1] == ';' ? p + 2 : 0;
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
        EXPECT_EQ(std::string(imagem.bytes.begin(), imagem.bytes.begin() + 4), "GIF8");
        EXPECT_EQ(Inteiro(imagem, 6, 2), static_cast<std::size_t>(largura));
        EXPECT_EQ(Inteiro(imagem, 8, 2), static_cast<std::size_t>(altura));
        EXPECT_EQ(EntradasDaTabela(imagem), cores);
        EXPECT_EQ(FimDoGIF(imagem), imagem.bytes.size());
    }
}

TEST(Imagens, TheOneBitArmsAreBlackAndWhite) {
    const auto tabela = figuras::imgBrasaoVDMonocromatico.bytes.subspan(fimDoCabecalho, 6);
    EXPECT_THAT(std::vector<int>(tabela.begin(), tabela.end()),
                testing::ElementsAre(0, 0, 0, 255, 255, 255));
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
