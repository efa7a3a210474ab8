// SPDX-License-Identifier: MIT
#include "output/png/PaginasPNG.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cmath>
#include <csignal>
#include <fstream>
#include <map>

#include "document/QuadroPagina.h"
#include "tests/output/pdf/ApoioPDF.h"

namespace tarvo {
namespace {

namespace fs = std::filesystem;

// A square in the corner of the last page.
std::string PDF(int paginas) {
    return Renderizar(Paginas(paginas, [paginas](DocumentoRelatorio& doc, int pagina) {
        if (pagina + 1 == paginas) {
            doc.DesenharRetangulo(0, 0, 1, 1, true, 0x808000, 0x808000, 1);
        }
    }));
}

TEST(PaginasPNG, EveryPageIsAPictureInTheWantedResolution) {
    const apoio::PastaTemporaria pasta;
    const auto arquivos = GravarPNG(PDF(11), pasta.Caminho(), "10-Relatorio", 100);
    ASSERT_EQ(arquivos.size(), 11U);
    EXPECT_EQ(arquivos[0].caminho, pasta / "10-Relatorio-001.png");
    EXPECT_EQ(arquivos[10].caminho, pasta / "10-Relatorio-011.png");
    EXPECT_EQ(arquivos[10].bytes, fs::file_size(arquivos[10].caminho));
    EXPECT_EQ(Entradas(pasta.Caminho()), 11);
    // 3937 pixels a metre; the colours within the square and beside it.
    const std::string lida = apoio::SaidaDe("convert " + arquivos[10].caminho.string() +
                                            " -format '%w x %h, %[png:pHYs]: %[pixel:p{98,98}] "
                                            "%[pixel:p{137,137}]' info:");
    EXPECT_THAT(lida, testing::HasSubstr("827 x 1169, x_res=3937, y_res=3937, units=1: "
                                         "srgb(0,128,128) srgb(255,255,255)"));
}

TEST(PaginasPNG, FramesOfOneThicknessHaveOneThicknessAtEveryResolution) {
    const apoio::PastaTemporaria pasta;
    const Conteudo conteudo = Documento([](DocumentoRelatorio& doc) {
        for (int linha = 0; linha < 40; ++linha) {
            DesenharMoldura(doc, 0, linha * 0.6, 17.0 / 3, 0.6);
            DesenharMoldura(doc, 17.0 / 3, linha * 0.6, 17.0 / 3, 0.6);
        }
    });
    for (const int dpi : {72, 96, 110, 150, 200, 300, 600}) {
        std::string pdf;
        RenderizarPDF(conteudo, pdf, {.dpi = dpi});
        const auto arquivos = GravarPNG(pdf, pasta.Caminho(), "x", dpi);
        // One column of pixels, at 2.5 cm: the runs that are not white.
        const std::string coluna = apoio::SaidaDe(
            "convert " + arquivos.front().caminho.string() + " -crop 1x0+" +
            std::to_string(static_cast<int>(2.5 / 2.54 * dpi)) + "+0 -depth 8 gray:-");
        std::map<std::string, int> linhas;
        for (std::size_t i = coluna.find_first_not_of('\xFF'); i != std::string::npos;) {
            const auto fim = coluna.find('\xFF', i);
            ++linhas[coluna.substr(i, fim - i)];
            i = coluna.find_first_not_of('\xFF', fim);
        }
        const auto pontos = static_cast<std::size_t>(std::max(1L, std::lround(dpi * 0.5 / 72)));
        EXPECT_EQ(linhas, (std::map<std::string, int>{{std::string(pontos, '\0'), 41}})) << dpi;
    }
}

TEST(PaginasPNG, OnlyPicturesThatFollowTheLastPageAreThoseOfAnEarlierRun) {
    const apoio::PastaTemporaria pasta;
    GravarPNG(PDF(7), pasta.Caminho(), "x", 30);
    const fs::path alheias[] = {pasta / "x-2004 assinado.png", pasta / "x-5.png",
                                pasta / "x-005 (2).png", pasta / "y-004.png"};
    for (const auto& alheia : alheias) {
        fs::copy_file(pasta / "x-001.png", alheia);
    }
    // The sixth is no picture, so that nothing from there on is known to be a page.
    std::ofstream(pasta / "x-006.png") << "do usuário";
    GravarPNG(PDF(3), pasta.Caminho(), "x", 30);
    for (const auto& alheia : alheias) {
        EXPECT_TRUE(fs::exists(alheia)) << alheia;
    }
    EXPECT_FALSE(fs::exists(pasta / "x-004.png") || fs::exists(pasta / "x-005.png"));
    EXPECT_TRUE(fs::exists(pasta / "x-006.png") && fs::exists(pasta / "x-007.png"));
}

TEST(PaginasPNG, WhatIsNoPDFOrNoResolutionIsRefusedAndLeavesNothing) {
    const apoio::PastaTemporaria pasta;
    const auto numero = [&](std::string_view pdf, int dpi, const char* onde = "") {
        return apoio::ErroDe([&] { GravarPNG(pdf, pasta / onde, "x", dpi); }).Numero();
    };
    EXPECT_EQ(numero("isto não é um PDF", 150), NumeroErro::ChamadaInvalida);
    EXPECT_EQ(numero(PDF(1), 0), NumeroErro::ChamadaInvalida);
    EXPECT_EQ(numero(PDF(1), 100000), NumeroErro::ChamadaInvalida);
    EXPECT_EQ(numero(PDF(1), 150, "nada"), NumeroErro::CaminhoNaoEncontrado);
    EXPECT_TRUE(fs::is_empty(pasta.Caminho()));
}

TEST(PaginasPNG, AKillAmidThePagesLeavesNothing) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    const apoio::PastaTemporaria pasta;
    const auto gravar = [&] {
        const rlimit limite{100, 100};  // less than a page: the signal comes while it is written
        ::setrlimit(RLIMIT_FSIZE, &limite);
        std::signal(SIGXFSZ, SIG_DFL);
        GravarPNG(PDF(2), pasta.Caminho(), "x", 30);
    };
    EXPECT_EXIT(gravar(), testing::KilledBySignal(SIGXFSZ), "");
    EXPECT_TRUE(fs::is_empty(pasta.Caminho()));
}

}  // namespace
}  // namespace tarvo
