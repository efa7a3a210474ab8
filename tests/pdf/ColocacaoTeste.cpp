#include <gtest/gtest.h>

#include "tests/pdf/ApoioPDF.h"

namespace tarvo {
namespace {

constexpr double Folga = 0.03;  // points: rounding of coordinates

TEST(Colocacao, BothAlignmentCodesPlaceALineInItsExactBox) {
    constexpr Caixa C{3, 4, 6, 2};
    const ArquivoPDF arquivo(Documento([&](DocumentoRelatorio& doc) {
        for (int codigo = 0; codigo < 9; ++codigo) {
            if (codigo > 0) {
                doc.NovaPagina();
            }
            Escrever(doc, C, "Ágil", {.horizontal = codigo % 3, .vertical = codigo / 3});
        }
    }));
    const double esquerda = (Margem + C.x) * PontosPorCm;
    const double topo = (Margem + C.y) * PontosPorCm;
    for (int codigo = 0; codigo < 9; ++codigo) {
        const auto palavras = arquivo.Palavras(codigo + 1);
        const int passosX = codigo % 3;
        const int passosY = codigo / 3;
        ASSERT_EQ(palavras.size(), 1U);
        const auto& p = palavras[0];
        EXPECT_EQ(p.texto, "Ágil");
        // Half of what the box leaves free stands before the text for each step of the code.
        const double livreX = C.largura * PontosPorCm - (p.x1 - p.x0);
        const double livreY = C.altura * PontosPorCm - (p.y1 - p.y0);
        EXPECT_NEAR(p.x0, esquerda + livreX * passosX / 2, Folga) << codigo;
        EXPECT_NEAR(p.y0, topo + livreY * passosY / 2, Folga) << codigo;
        // Line height and width from the font's own metrics, at 8 points.
        EXPECT_NEAR(p.y1 - p.y0, 8 * (0.905 + 0.212), Folga);
        EXPECT_NEAR(p.x1 - p.x0, 8 * (0.667 + 0.556 + 0.222 + 0.222), Folga);
    }
}

TEST(Colocacao, EachFontHasItsOwnBaselineAndWidths) {
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        Escrever(doc, {0, 0, 10, 1}, "mmmm", {.fonte = "Courier New", .tamanho = 10});
        Escrever(doc, {0, 2, 10, 1}, "mmmm", {.fonte = "Times New Roman", .tamanho = 10});
    }));
    const auto palavras = arquivo.Palavras(1);
    ASSERT_EQ(palavras.size(), 2U);
    EXPECT_NEAR(palavras[0].x1 - palavras[0].x0, 4 * 6.0, Folga);
    EXPECT_NEAR(palavras[0].y1 - palavras[0].y0, 10 * (0.833 + 0.3), Folga);
    EXPECT_NEAR(palavras[1].x1 - palavras[1].x0, 4 * 7.78, Folga);
    EXPECT_NEAR(palavras[1].y1 - palavras[1].y0, 10 * (0.891 + 0.216), Folga);
}

TEST(Colocacao, TextBeyondThePrintableAreaStandsInTheMargin) {
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        Escrever(doc, {-0.28, -1, 2, 0.5}, "margem");
        Escrever(doc, {17, 25, 1.5, 0.5}, "fora", {.horizontal = 2});
    }));
    const auto palavras = arquivo.Palavras(1);
    ASSERT_EQ(palavras.size(), 2U);
    EXPECT_NEAR(palavras[0].x0, 1.72 * PontosPorCm, Folga);
    EXPECT_NEAR(palavras[0].y0, 1.0 * PontosPorCm, Folga);
    EXPECT_NEAR(palavras[1].x1, 20.5 * PontosPorCm, Folga);
}

TEST(Colocacao, FiguresOfAmountsStandUnderOneAnother) {
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        Escrever(doc, {0, 0, 5, 0.6}, "1.111.111,11", {.horizontal = 2});
        Escrever(doc, {0, 1, 5, 0.6}, "2.222.222,22", {.horizontal = 2});
    }));
    const auto palavras = arquivo.Palavras(1);
    ASSERT_EQ(palavras.size(), 2U);
    EXPECT_NEAR(palavras[0].x0, palavras[1].x0, Folga);
}

TEST(Colocacao, PlaceholdersStandForDateTimeAndThePagesOfTheirOwnDocument) {
    const Ambiental momento("SOURCE_DATE_EPOCH", "1057000009");  // 30/06/2003 19:06:49 UTC
    const auto rodape = [](int paginas) {
        return Documento([paginas](DocumentoRelatorio& doc) {
            for (int i = 0; i < paginas; ++i) {
                if (i > 0) {
                    doc.NovaPagina();
                }
                Escrever(doc, {0, 0, 17, 1}, "%%D %%H Página %%p de %%P, 100%%, %%x %%");
            }
        });
    };
    const Conteudo tres = rodape(3);
    const Conteudo duas = rodape(2);
    const SecaoPDF secoes[] = {{&tres, "Três"}, {&duas, "Duas"}};
    const ArquivoPDF arquivo(secoes);
    const char* const esperados[] = {"1 de 3", "2 de 3", "3 de 3", "1 de 2", "2 de 2"};
    for (int pagina = 1; pagina <= 5; ++pagina) {
        EXPECT_THAT(arquivo.Texto(pagina),
                    testing::StartsWith(std::string("30/06/2003 19:06:49 Página ") +
                                        esperados[pagina - 1] + ", 100%%, %%x %%"));
    }
}

TEST(Colocacao, TextReadsRowByRowWithLabelsBeforeValues) {
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        for (int linha = 0; linha < 3; ++linha) {
            const double y = linha * 0.6;
            const std::string n = std::to_string(linha);
            doc.DesenharRetanguloArredondado(0, y, 8, 0.6, false, 0.1, 0, 0xFFFFFF, 1);
            Escrever(doc, {0.1, y, 8, 0.6}, "Razão Social " + n, {.tamanho = 6});
            Escrever(doc, {0.2, y, 7, 0.6}, "Açúcar & Cia " + n, {.vertical = 2});
        }
    }));
    const std::string emOrdem = Executar("pdftotext -raw " + arquivo.Nome() + " -").texto;
    EXPECT_THAT(emOrdem, testing::StartsWith("Razão Social 0\nAçúcar & Cia 0\n"
                                             "Razão Social 1\nAçúcar & Cia 1\n"
                                             "Razão Social 2\nAçúcar & Cia 2\n"));
}

}  // namespace
}  // namespace tarvo
