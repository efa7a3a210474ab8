// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "document/Imagens.h"
#include "document/QuadroPagina.h"
#include "tests/output/pdf/ApoioPDF.h"

// Shapes, colours and pictures, by the pixels that another program makes of them.
namespace tarvo {
namespace {

constexpr CorRGB Branco{255, 255, 255};
constexpr CorRGB Preto{0, 0, 0};
constexpr CorRGB Vermelho{255, 0, 0};
constexpr CorRGB Verde{0, 255, 0};

// Four pixels in a row: red, green, blue, and one of the transparent colour.
constexpr unsigned char QuatroCores[] = {
    'G',  'I',  'F',  '8',  '9',  'a', 4, 0, 1,   0,  0x91, 0,  0,  // screen 4 x 1, 4 colours
    255,  0,    0,    0,    255,  0,   0, 0, 255, 90, 90,   90,     // palette
    0x21, 0xF9, 4,    1,    0,    0,   3, 0,                        // colour 3 is transparent
    0x2C, 0,    0,    0,    0,    4,   0, 1, 0,   0,                // the picture
    2,    3,    0x44, 0x34, 0x05, 0,                                // its pixels 0 1 2 3
    0x3B};

Imagem GIF(std::span<const unsigned char> bytes) {
    return {"teste", "", FormatoImagem::GIF, 4, 1, bytes};
}

TEST(Desenho, ColoursBordersAndFillsAreThoseOfTheArguments) {
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        doc.DesenharRetangulo(1, 1, 4, 2, true, 0x0000FF, 0x808000, 8);
        doc.DesenharRetangulo(7, 1, 4, 2, false, 0, 0x808000, 1);
        doc.DesenharRetanguloArredondado(1, 5, 4, 2, true, 9, 0, 0x00FF00, 1);
        doc.DesenharLinha(-1.5, 10, 20, 0, 0, 0, 8, 0);
    }));
    EXPECT_EQ(arquivo.Cor(1, 3, 2), (CorRGB{0, 128, 128}));
    EXPECT_EQ(arquivo.Cor(1, 1, 2), Vermelho);
    EXPECT_EQ(arquivo.Cor(1, 9, 2), Branco);
    // A radius larger than the box is that of a half circle at each end.
    EXPECT_EQ(arquivo.Cor(1, 3, 6), Verde);
    EXPECT_EQ(arquivo.Cor(1, 1.05, 5.05), Branco);
    EXPECT_EQ(arquivo.Cor(1, 2.1, 5.05), Verde);
    EXPECT_EQ(arquivo.Cor(1, -1.4, 10), Preto);
    EXPECT_EQ(arquivo.Cor(1, 18.4, 10), Preto);
}

TEST(Desenho, ADottedLineIsARowOfFineDotsAndTheNextLineIsSolidAgain) {
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        doc.DesenharLinha(0, 1, 10, 0, 0, 0, 1, 2);
        doc.DesenharLinha(0, 2, 10, 0, 0, 0, 1, 0);
        doc.DesenharLinha(0, 3, 10, 0, 0, 0, 8, 2);
        doc.DesenharLinha(0, 4, 10, 0, 0, 0, 8, 0);
    }));
    const auto trocas = [&](double y) {
        int n = 0;
        bool escuro = false;
        for (int centesimo = 100; centesimo < 900; ++centesimo) {
            const bool agora = arquivo.Cor(1, centesimo / 100.0, y)[0] < 128;
            n += agora != escuro ? 1 : 0;
            escuro = agora;
        }
        return n;
    };
    // 8 cm with a dot every 1.5 points: about 150 dots, each a change to dark and back.
    EXPECT_GT(trocas(1), 200);
    EXPECT_EQ(trocas(2), 1);
    EXPECT_EQ(arquivo.Cor(1, 10.05, 4), Preto) << "ends square, to close a corner";
    // A dot takes a third of its place.
    int escuros = 0;
    for (int centesimo = 100; centesimo < 900; ++centesimo) {
        escuros += arquivo.Cor(1, centesimo / 100.0, 3)[0] < 128 ? 1 : 0;
    }
    EXPECT_NEAR(escuros, 267, 20);
}

TEST(Desenho, WhatIsDrawnLaterCoversWhatWasDrawnBefore) {
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        Escrever(doc, {{1, 1, 8, 1}, "████████", {.tamanho = 20, .cor = 255}});
        doc.DesenharRetangulo(1, 1, 3, 2, true, 0xFFFFFF, 0xFFFFFF, 1);
        doc.DesenharRetangulo(1, 5, 8, 1, true, 0, 0, 1);
        Escrever(doc, {{1, 5, 8, 1}, "████████", {.vertical = 1, .tamanho = 20, .cor = 255}});
        doc.DesenharFigura(10, 1, 2, 2, frmFiguras::imgBrasaoVDColorido, false);
        doc.DesenharRetangulo(10, 1, 2, 2, true, 255, 255, 1);
        // A hollow frame across a text, and one that is filled, with the text's own colour around.
        Escrever(doc, {{1, 9, 8, 1}, "████████", {.tamanho = 20, .cor = 255}});
        doc.DesenharRetangulo(2, 8, 3, 3, false, 0, 0, 8);
        doc.DesenharRetangulo(6, 8, 1, 3, true, 255, 0xFFFFFF, 1);
        Escrever(doc, {{1, 11.2, 3, 0.5}, "antes"});
        // The stroke of this letter reaches beyond its width.
        doc.EscreverTexto(1, 13, 8, 3, "f", 0, 0, "Times New Roman", 80, false, true, false, 0);
        doc.DesenharRetangulo(1 + 80 * 0.278 * 2.54 / 72 + 0.04, 12, 4, 4, true, 0xFFFFFF, 0xFFFFFF,
                              1);
    }));
    EXPECT_EQ(arquivo.Cor(1, 2, 1.5), Branco);
    EXPECT_EQ(arquivo.Cor(1, 4.5, 1.5), Vermelho);
    EXPECT_EQ(arquivo.Cor(1, 2, 5.5), Vermelho);
    EXPECT_EQ(arquivo.Cor(1, 8.5, 5.1), Preto);
    EXPECT_EQ(arquivo.Cor(1, 11, 2), Vermelho);
    EXPECT_EQ(arquivo.Cor(1, 2, 9.5), Preto);
    EXPECT_EQ(arquivo.Cor(1, 3.5, 9.5), Vermelho);
    EXPECT_EQ(arquivo.Cor(1, 6.5, 9.5), Branco);
    for (int centesimo = 184; centesimo < 300; ++centesimo) {
        EXPECT_EQ(arquivo.Cor(1, centesimo / 100.0, 13.6), Branco) << centesimo;
    }
}

TEST(Desenho, AFrameDrawnTwiceLooksLikeOneDrawnOnce) {
    // The edges of its corners are grey, and would be darker.
    const auto molduras = [](int vezes) {
        return Documento([vezes](DocumentoRelatorio& doc) {
            for (int i = 0; i < vezes; ++i) {
                doc.DesenharRetanguloArredondado(1, 1, 4, 2, false, 0.5, 0, 0, 1);
            }
        });
    };
    EXPECT_TRUE(ArquivoPDF(molduras(2)).Pixels(1) == ArquivoPDF(molduras(1)).Pixels(1));
}

TEST(Desenho, FramesSharedByPagesLookLikeFramesDrawnAlone) {
    const auto pagina = [](DocumentoRelatorio& doc, int) {
        ImprimirTopo(doc, {.titulo = "Título"}, 0, 0, nullptr);
        for (int linha = 0; linha < 31; ++linha) {
            const double y = 5.9 + linha * 0.6;
            Celula(doc, {.cor = Cor::Teal}, 0, y, 0.9, 0.6, "001");
            Celula(doc, {}, 0.9, y, 11.7, 0.6, "Por saídas com débito do imposto");
            doc.DesenharLinha(13, y, 2, 0, 0, 0, 1, 2);
            CelulaRotulada(doc, CampoTotal, 13.7, y, 3.3, 0.6, "Total", "1,00");
        }
    };
    const ArquivoPDF so(Paginas(1, pagina));
    const ArquivoPDF muitas(Paginas(4, pagina));
    for (int i = 1; i <= 4; ++i) {
        EXPECT_TRUE(muitas.Pixels(i) == so.Pixels(1)) << "page " << i;
    }
}

// Its number in the file's font depends on them.
TEST(Desenho, AGlyphLooksTheSameWhateverElseItsFontHolds) {
    const auto pagina = [](DocumentoRelatorio& doc, int n) {
        const char* const textos[] = {"bX\u0302\u0301 \u0416\u03A9", "A Ca \u0416 \u0410X\u0323B"};
        Escrever(doc, {{0, 0, 10, 1}, textos[n], {.fonte = "DejaVu Sans", .tamanho = 20}});
    };
    EXPECT_TRUE(ArquivoPDF(Paginas(2, pagina)).Pixels(1) ==
                ArquivoPDF(Paginas(1, pagina)).Pixels(1));
}

TEST(Desenho, EveryPageHasItsOwnColoursWidthsAndWholeBorders) {
    const ArquivoPDF arquivo(Paginas(3, [](DocumentoRelatorio& doc, int) {
        doc.DesenharRetanguloArredondado(1, 1, 4, 2, false, 0.5, 0, 0, 20);
        Escrever(doc, {{1, 5, 2, 1}, "█████", {.tamanho = 20, .cor = 255}});
    }));
    for (int pagina = 1; pagina <= 3; ++pagina) {
        EXPECT_EQ(arquivo.Cor(pagina, 0.9, 2), Preto) << "the outer half of a shared frame";
        EXPECT_EQ(arquivo.Cor(pagina, 2.9, 5.5), Vermelho);
        EXPECT_EQ(arquivo.Cor(pagina, 3.1, 5.5), Branco) << "condensed to its box";
    }
}

TEST(Desenho, APictureSmallerThanItsScreenStandsWhereItSays) {
    // Red and green at (1, 1) of a screen of 3 x 2, whose background is blue.
    constexpr unsigned char bytes[] = {
        'G',  'I', 'F', '8', '9', 'a', 3, 0, 2,   0,  0x91, 2,  0,  //
        255,  0,   0,   0,   255, 0,   0, 0, 255, 90, 90,   90,     //
        0x2C, 1,   0,   1,   0,   2,   0, 1, 0,   0,  2,    2,  0x44, 0x0A, 0, 0x3B};
    const Imagem imagem = GIF(bytes);
    const ArquivoPDF arquivo(
        Documento([&](DocumentoRelatorio& doc) { doc.DesenharFigura(0, 0, 3, 2, imagem, false); }));
    constexpr CorRGB Azul{0, 0, 255};
    const CorRGB esperadas[2][3] = {{Azul, Azul, Azul}, {Azul, Vermelho, Verde}};
    for (const int linha : {0, 1}) {
        for (const int coluna : {0, 1, 2}) {
            EXPECT_EQ(arquivo.Cor(1, coluna + 0.5, linha + 0.5), esperadas[linha][coluna]);
        }
    }
}

TEST(Desenho, APictureFillsItsBoxOrKeepsItsProportionsInIt) {
    const Imagem imagem = GIF(QuatroCores);
    const ArquivoPDF arquivo(Documento([&](DocumentoRelatorio& doc) {
        doc.DesenharRetangulo(0, 0, 4, 4, true, 0xFFFF00, 0xFFFF00, 1);
        doc.DesenharFigura(0, 0, 4, 4, imagem, false);
        doc.DesenharFigura(6, 0, 4, 4, imagem, true);
    }));
    // Four columns; the fourth is transparent and shows what lies below.
    EXPECT_EQ(arquivo.Cor(1, 0.5, 3.5), Vermelho);
    EXPECT_EQ(arquivo.Cor(1, 1.5, 0.5), Verde);
    EXPECT_EQ(arquivo.Cor(1, 2.5, 0.5), (CorRGB{0, 0, 255}));
    EXPECT_EQ(arquivo.Cor(1, 3.5, 2), (CorRGB{0, 255, 255}));
    // Proportional: 4 cm wide and 1 cm high, in the middle.
    EXPECT_EQ(arquivo.Cor(1, 6.5, 2), Vermelho);
    EXPECT_EQ(arquivo.Cor(1, 6.5, 1.4), Branco);
    EXPECT_EQ(arquivo.Cor(1, 6.5, 2.6), Branco);
}

TEST(Desenho, EachPictureIsEmbeddedOnceAsItsDrawingOrWithItsOwnNumberOfColours) {
    Imagem semDesenho = frmFiguras::imgBrasaoVDMonocromatico;
    semDesenho.desenho = {};
    const Imagem cores = GIF(QuatroCores);
    const ArquivoPDF arquivo(Paginas(3, [&](DocumentoRelatorio& doc, int) {
        doc.DesenharFigura(0, 0, 2, 2, frmFiguras::imgBrasaoVDColorido, false);
        doc.DesenharFigura(3, 0, 2, 2, semDesenho, true);
        doc.DesenharFigura(6, 0, 2, 2, cores, true);
    }));
    std::vector<std::string> figuras;
    for (const auto& [nome, objeto] : arquivo.Objetos().items()) {
        if (objeto.contains("stream") && objeto["stream"]["dict"].contains("/Subtype")) {
            const auto& d = objeto["stream"]["dict"];
            figuras.push_back(d["/Subtype"] == "/Image" ? d["/ColorSpace"][1].get<std::string>() +
                                                              " " + d["/BitsPerComponent"].dump()
                                                        : d["/Subtype"].get<std::string>());
        }
    }
    EXPECT_THAT(figuras,
                testing::UnorderedElementsAre("/Form", "/DeviceGray 1", "/DeviceRGB 2", "/XML"));
}

TEST(Desenho, DrawingsAreSharpFillTheirBoxAndThoseOfTheSlipNeedNoColourOfAPrinter) {
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        doc.DesenharFigura(0, 0, 5.5, 6, frmFiguras::imgBrasaoVDMonocromatico, false);
        doc.DesenharFigura(6, 0, 0.95, 7.4, frmFiguras::imgPortariaKEX_27_95, true);
        doc.DesenharFigura(8, 0, 1.15, 0.87, frmFiguras::imgTesoura, true);
    }));
    // The shield's upright left edge, 1.09 to 1.41 cm, is black at once from one pixel to the next.
    EXPECT_EQ(arquivo.Cor(1, 1.06, 2), Branco);
    EXPECT_EQ(arquivo.Cor(1, 1.11, 2), Preto);
    EXPECT_EQ(arquivo.Cor(1, 2.5, 5.7), Branco) << "the ribbon";
    EXPECT_EQ(arquivo.Cor(1, 8.8, 0.45), Preto) << "the blades";
    EXPECT_EQ(arquivo.Dito("qpdf --qdf --object-streams=disable",
                           "- | sed -n -E '/ (rg|RG)$|DeviceRGB/p'"),
              "");
    arquivo.EsperarSemFaltas();
}

TEST(Desenho, APictureWhosePixelsAreDamagedIsAnErrorThatNamesIt) {
    std::vector<unsigned char> bytes(std::begin(QuatroCores), std::end(QuatroCores));
    bytes[bytes.size() - 4] = 0xFF;  // a code of the picture that none came before
    const Imagem imagem = GIF(bytes);
    const Conteudo conteudo =
        Documento([&](DocumentoRelatorio& doc) { doc.DesenharFigura(0, 0, 1, 1, imagem, false); });
    const Erro erro = apoio::ErroDe([&] { Renderizar(conteudo); });
    EXPECT_EQ(erro.Numero(), NumeroErro::ChamadaInvalida);
    EXPECT_THAT(erro.Descricao(), testing::HasSubstr("teste"));
}

TEST(Desenho, UnderlinedTextCarriesALineInItsColour) {
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        doc.EscreverTexto(0, 0, 5, 1, "nn nn", 0, 0, "Arial", 20, false, true, true, 255);
        doc.EscreverTexto(0, 3, 5, 1, "nn", 0, 0, "Arial", 20, true, false, false, 0);
    }));
    // Baseline at 0.905 of 20 points, the line below it without touching the letters' feet, between
    // the words, too.
    for (int centesimo = 5; centesimo < 150; ++centesimo) {
        const double x = centesimo / 100.0;
        EXPECT_EQ(arquivo.Cor(1, x, 0.69), Vermelho);
        EXPECT_EQ(arquivo.Cor(1, x, 0.652), Branco);
    }
    EXPECT_THAT(arquivo.Dito("pdffonts"), testing::AllOf(testing::HasSubstr("Sans-Italic "),
                                                         testing::HasSubstr("Sans-Bold ")));
}

}  // namespace
}  // namespace tarvo
