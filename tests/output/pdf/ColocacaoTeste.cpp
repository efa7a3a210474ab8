// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "tests/output/pdf/ApoioPDF.h"

namespace tarvo {
namespace {

constexpr double Folga = 0.03;  // points: rounding of coordinates

TEST(Colocacao, BothAlignmentCodesPlaceALineInItsExactBox) {
    constexpr Caixa C{3, 4, 6, 2};
    const ArquivoPDF arquivo(Paginas(9, [&](DocumentoRelatorio& doc, int codigo) {
        Escrever(doc, {C, "Ágil", {.horizontal = codigo % 3, .vertical = codigo / 3}});
    }));
    for (int codigo = 0; codigo < 9; ++codigo) {
        SCOPED_TRACE(codigo);
        const auto p = arquivo.Palavras(codigo + 1, 1)[0];
        EXPECT_EQ(p.texto, "Ágil");
        // Half of what the box leaves free stands before the text for each step of the code.
        const int horizontal = codigo % 3;
        const int vertical = codigo / 3;
        const double livreX = Pontos(C.x + C.largura) - Pontos(C.x) - p.Largura();
        const double livreY = Pontos(C.y + C.altura) - Pontos(C.y) - p.Altura();
        EXPECT_NEAR(p.x0, Pontos(C.x) + livreX * horizontal / 2, Folga);
        // What stands at the bottom keeps clear of a frame there.
        const double elevacao = vertical == 2 ? 0.4 : 0;
        EXPECT_NEAR(p.y0, Pontos(C.y) + livreY * vertical / 2 - elevacao, Folga);
        // Line height and width from the font's own metrics, at 8 points.
        EXPECT_NEAR(p.Altura(), 8 * (0.905 + 0.212), Folga);
        EXPECT_NEAR(p.Largura(), 8 * (0.667 + 0.556 + 0.222 + 0.222), Folga);
    }
}

TEST(Colocacao, EachFontHasItsOwnBaselineAndWidths) {
    const ArquivoPDF arquivo(
        Textos({{{0, 0, 10, 1}, "mmmm", {.fonte = "Courier New", .tamanho = 10}},
                {{0, 2, 10, 1}, "mmmm", {.fonte = "Times New Roman", .tamanho = 10}}}));
    const auto palavras = arquivo.Palavras(1, 2);
    EXPECT_NEAR(palavras[0].Largura(), 4 * 6.0, Folga);
    EXPECT_NEAR(palavras[0].Altura(), 10 * (0.833 + 0.3), Folga);
    EXPECT_NEAR(palavras[1].Largura(), 4 * 7.78, Folga);
    EXPECT_NEAR(palavras[1].Altura(), 10 * (0.891 + 0.216), Folga);
}

TEST(Colocacao, FacesOfOneSizeInTheMiddleOfARowShareABaseline) {
    const ArquivoPDF arquivo(
        Textos({{{0, 0, 1, 0.6}, "001", {.vertical = 1}},
                {{1, 0, 5, 0.6}, "Saldo", {.vertical = 1, .fonte = "Courier New"}},
                {{6, 0, 5, 0.6}, "Saldo", {.vertical = 1, .fonte = "Times New Roman"}}}));
    const auto p = arquivo.Palavras(1, 3);
    const double base = p[0].y1 - 8 * 0.212;
    EXPECT_NEAR(p[1].y1 - 8 * 0.3, base, Folga);
    EXPECT_NEAR(p[2].y1 - 8 * 0.216, base, Folga);
}

TEST(Colocacao, TwoTextsAtTheSidesOfOneBoxShareItAndTheLaterOneGivesWay) {
    const std::string longo(150, 'A');
    for (const auto& marca : {std::string("000123456789"), longo.substr(0, 85), longo}) {
        const ArquivoPDF arquivo(
            Textos({{{0, 0, 17, 0.3}, "DRQ"}, {{0, 0, 17, 0.3}, marca, {.horizontal = 2}}}));
        const auto p = arquivo.Palavras(1, 2);
        EXPECT_NEAR(p[0].x0, Pontos(0), Folga);
        EXPECT_GE(p[1].x0, p[0].x1 + 3.9);
        EXPECT_NEAR(p[1].x1, Pontos(17), 0.1);
        EXPECT_EQ(arquivo.Resultado().cortados.size(), marca == longo ? 1U : 0U);
    }
}

TEST(Colocacao, WhatReachesFarBeyondThePageCrossesItWhereItShould) {
    constexpr double Longe = 1e9;
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        doc.DesenharRetangulo(-Longe, 1, 2 * Longe, 2, true, 255, 255, 1);
        doc.DesenharLinha(-Longe, 5, Longe + 5, 0, 0, 0, 8, 0);
        doc.DesenharLinha(3 - Longe, 12 - Longe, 2 * Longe, 2 * Longe, 0, 0, 8, 0);
        doc.DesenharLinha(-Longe, 20, Longe / 2, 0, 0, 0, 8, 0);
        Escrever(doc, {{5 - Longe, 8, 2 * Longe, 1}, "meio", {.horizontal = 1}});
        Escrever(doc, {{6 - Longe, 9, Longe, 1}, "fim", {.horizontal = 2}});
    }));
    constexpr CorRGB Vermelho{255, 0, 0};
    constexpr CorRGB Preto{0, 0, 0};
    EXPECT_EQ(arquivo.Cor(1, -1.9, 2), Vermelho);
    EXPECT_EQ(arquivo.Cor(1, 18.9, 2), Vermelho);
    EXPECT_EQ(arquivo.Cor(1, 4.9, 5), Preto);
    EXPECT_NE(arquivo.Cor(1, 5.2, 5), Preto);
    EXPECT_EQ(arquivo.Cor(1, 5, 14), Preto);
    EXPECT_NE(arquivo.Cor(1, 0, 20), Preto);
    const auto p = arquivo.Palavras(1, 2);
    EXPECT_NEAR((p[0].x0 + p[0].x1) / 2, Pontos(5), Folga);
    EXPECT_NEAR(p[1].x1, Pontos(6), Folga);
}

TEST(Colocacao, TextBeyondThePrintableAreaStandsInTheMargin) {
    const ArquivoPDF arquivo(
        Textos({{{-0.28, -1, 2, 0.5}, "margem"}, {{17, 25, 1.5, 0.5}, "fora", {.horizontal = 2}}}));
    const auto palavras = arquivo.Palavras(1, 2);
    EXPECT_NEAR(palavras[0].x0, Pontos(-0.28), Folga);
    EXPECT_NEAR(palavras[0].y0, Pontos(-1), Folga);
    EXPECT_NEAR(palavras[1].x1, Pontos(18.5), Folga);
}

TEST(Colocacao, KernedLettersAndShapedGlyphsEndWhereTheirBoxDoes) {
    constexpr const char* ComAcentos = "DejaVu Sans";  // that are glyphs of their own
    const ArquivoPDF arquivo(
        Textos({{{0, 0, 5, 0.6}, "AVAVAV", {.horizontal = 2}},
                {{0, 1, 5, 0.6}, "Xy depois", {.fonte = ComAcentos}},
                {{0, 2, 5, 0.6}, "X\u0302\u0301y depois", {.fonte = ComAcentos}},
                {{0, 3, 5, 0.6}, "yX\u0302\u0301", {.horizontal = 2, .fonte = ComAcentos}}}));
    const auto p = arquivo.Palavras(1);
    EXPECT_NEAR(p.front().x1, Pontos(5), Folga);
    EXPECT_LT(p.front().Largura(), 8 * 6 * 0.667 - 1);
    // What stands after accents stands as without them.
    const auto depois = [&](std::size_t n) {
        auto palavra = p.begin() - 1;
        for (++n; n > 0; --n) {
            palavra = std::find_if(palavra + 1, p.end(),
                                   [](const Palavra& q) { return q.texto == "depois"; });
        }
        return *palavra;
    };
    EXPECT_NEAR(depois(0).x0, depois(1).x0, Folga);
    EXPECT_NEAR(depois(0).y1 + Pontos(1), depois(1).y1 + Pontos(0), Folga);
    EXPECT_NEAR(p.back().x1, Pontos(5), Folga);
}

TEST(Colocacao, PlaceholdersStandForDateTimeAndThePagesOfTheirOwnDocument) {
    const Ambiental momento("SOURCE_DATE_EPOCH", "1057000009");  // 30/06/2003 19:06:49 UTC
    const auto desenhar = [](DocumentoRelatorio& doc, int) {
        Escrever(doc, {{0, 0, 17, 1}, "%%D %%H Página %%p de %%P, %%%p, 100%%, %%x %%"});
    };
    const Conteudo tres = Paginas(3, desenhar);
    const Conteudo duas = Paginas(2, desenhar);
    const SecaoPDF secoes[] = {{&tres, "Três"}, {&duas, "Duas"}};
    const ArquivoPDF arquivo(secoes);
    int pagina = 0;
    for (const char* esperado : {"1 de 3", "2 de 3", "3 de 3", "1 de 2", "2 de 2"}) {
        EXPECT_THAT(arquivo.Texto(++pagina),
                    testing::StartsWith(std::string("30/06/2003 19:06:49 Página ") + esperado +
                                        ", %" + esperado[0] + ", 100%%, %%x %%"));
    }
}

TEST(Colocacao, TextReadsRowByRowWithLabelsBeforeValues) {
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        for (int linha = 0; linha < 3; ++linha) {
            const double y = linha * 0.6;
            const std::string n = std::to_string(linha);
            doc.DesenharRetanguloArredondado(0, y, 8, 0.6, false, 0.1, 0, 0xFFFFFF, 1);
            Escrever(doc, {{0.1, y, 8, 0.6}, "Razão Social " + n, {.tamanho = 6}});
            Escrever(doc, {{0.2, y, 7, 0.6}, "Açúcar & Cia " + n, {.vertical = 2}});
        }
    }));
    EXPECT_THAT(arquivo.Dito("pdftotext -raw", "-"),
                testing::StartsWith("Razão Social 0\nAçúcar & Cia 0\n"
                                    "Razão Social 1\nAçúcar & Cia 1\n"
                                    "Razão Social 2\nAçúcar & Cia 2\n"));
}

}  // namespace
}  // namespace tarvo
