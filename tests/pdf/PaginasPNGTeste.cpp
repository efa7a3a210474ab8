#include "platform/png/PaginasPNG.h"

#include <gtest/gtest.h>
#include <png.h>

#include "data/CodigosDeErros.h"
#include "tests/pdf/ApoioPDF.h"

namespace tarvo {
namespace {

namespace fs = std::filesystem;

// A picture as another decoder reads it.
struct Foto {
    std::uint32_t largura = 0;
    std::uint32_t altura = 0;
    std::vector<unsigned char> rgb;

    // At a place of the paper in cm, at 100 pixels an inch.
    [[nodiscard]] CorRGB Cor(double x, double y) const {
        const auto i = 3 * (static_cast<std::size_t>(y * 100 / 2.54) * largura +
                            static_cast<std::size_t>(x * 100 / 2.54));
        return {rgb.at(i), rgb.at(i + 1), rgb.at(i + 2)};
    }
};

Foto LerPNG(const fs::path& arquivo) {
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    EXPECT_NE(png_image_begin_read_from_file(&png, arquivo.c_str()), 0) << png.message;
    png.format = PNG_FORMAT_RGB;
    Foto foto{png.width, png.height, std::vector<unsigned char>(PNG_IMAGE_SIZE(png))};
    EXPECT_NE(png_image_finish_read(&png, nullptr, foto.rgb.data(), 0, nullptr), 0) << png.message;
    return foto;
}

std::string Paginas(int quantas) {
    std::string pdf;
    RenderizarPDF(Documento([quantas](DocumentoRelatorio& doc) {
                      for (int i = 1; i < quantas; ++i) {
                          doc.NovaPagina();
                      }
                      doc.DesenharRetangulo(0, 0, 1, 1, true, 0x808000, 0x808000, 1);
                  }),
                  pdf);
    return pdf;
}

TEST(PaginasPNG, EveryPageIsAPictureInTheWantedResolution) {
    const apoio::PastaTemporaria pasta;
    const auto arquivos = GravarPNG(Paginas(11), pasta.Caminho(), "10-Relatorio", 100);
    ASSERT_EQ(arquivos.size(), 11U);
    EXPECT_EQ(arquivos[0], pasta / "10-Relatorio-001.png");
    EXPECT_EQ(arquivos[10], pasta / "10-Relatorio-011.png");
    EXPECT_EQ(std::distance(fs::directory_iterator(pasta.Caminho()), fs::directory_iterator()), 11);
    const Foto imagem = LerPNG(arquivos[10]);
    EXPECT_EQ(imagem.largura, 827U);
    EXPECT_EQ(imagem.altura, 1169U);
    EXPECT_EQ(imagem.Cor(3.5, 3.5), (CorRGB{255, 255, 255}));
    EXPECT_EQ(imagem.Cor(2.5, 2.5), (CorRGB{0, 128, 128}));
    const std::string resolucao("pHYs\0\0\x0F\x61\0\0\x0F\x61\1", 13);  // 3937 a metre
    EXPECT_THAT(Conteudos(arquivos[10]), testing::HasSubstr(resolucao));
}

TEST(PaginasPNG, WhatIsNoPDFOrNoResolutionIsRefusedAndLeavesNothing) {
    const apoio::PastaTemporaria pasta;
    const auto numero = [&](std::string_view pdf, int dpi) {
        return apoio::ErroDe([&] { GravarPNG(pdf, pasta.Caminho(), "x", dpi); }).Numero();
    };
    EXPECT_EQ(numero("isto não é um PDF", 150), NumeroErro::ChamadaInvalida);
    EXPECT_EQ(numero(Paginas(1), 0), NumeroErro::ChamadaInvalida);
    EXPECT_EQ(numero(Paginas(1), 100000), NumeroErro::ChamadaInvalida);
    EXPECT_EQ(apoio::ErroDe([&] { GravarPNG(Paginas(1), pasta / "nada", "x", 150); }).Numero(),
              NumeroErro::CaminhoNaoEncontrado);
    EXPECT_TRUE(fs::is_empty(pasta.Caminho()));
}

}  // namespace
}  // namespace tarvo
