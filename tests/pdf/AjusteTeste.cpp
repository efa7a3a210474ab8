#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "data/CodigosDeErros.h"
#include "tests/pdf/ApoioPDF.h"

// What happens to texts that do not fit their boxes or are not Latin.
namespace tarvo {
namespace {

using testing::HasSubstr;

TEST(Ajuste, ALineTooLongIsCondensedToItsBoxWithNothingLost) {
    const std::string texto = "Ressarcimento do imposto retido por substituição";
    const ArquivoPDF arquivo(Documento([&](DocumentoRelatorio& doc) {
        Escrever(doc, {0, 0, 10, 0.6}, texto);
        Escrever(doc, {0, 2, 5, 0.6}, texto, {.horizontal = 2});
    }));
    EXPECT_TRUE(arquivo.Resultado().cortados.empty());
    const auto palavras = arquivo.Palavras(1);
    ASSERT_EQ(palavras.size(), 12U);
    EXPECT_EQ(palavras.back().texto, "substituição");
    EXPECT_NEAR(palavras.back().x1, (Margem + 5) * PontosPorCm, 0.1);
    EXPECT_NEAR(palavras[6].x0, Margem * PontosPorCm, 0.1);
    // Condensed, not set smaller.
    EXPECT_NEAR(palavras[6].y1 - palavras[6].y0, palavras[0].y1 - palavras[0].y0, 0.01);
}

TEST(Ajuste, WhatDoesNotFitAtSixtyPerCentIsCutMarkedAndReportedWithItsPage) {
    const std::string longo = "Distribuidora de Combustíveis e Lubrificantes Planalto";
    constexpr Caixa C{1, 3, 2.5, 0.6};
    const ArquivoPDF arquivo(Documento([&](DocumentoRelatorio& doc) {
        Escrever(doc, {0, 0, 10, 0.6}, "cabe");
        doc.NovaPagina();
        Escrever(doc, C, longo);
        Escrever(doc, {0, 5, 3, 1}, longo + " " + longo + " " + longo + " " + longo + " " + longo,
                 {.multilinha = true});
    }));
    const auto& cortados = arquivo.Resultado().cortados;
    ASSERT_EQ(cortados.size(), 2U);
    EXPECT_EQ(cortados[0].pagina, 2U);
    EXPECT_EQ(cortados[0].caixa, C);
    EXPECT_EQ(cortados[0].texto, longo);
    EXPECT_EQ(cortados[1].pagina, 2U);
    for (const auto& p : arquivo.Palavras(2)) {
        EXPECT_LE(p.x1, (Margem + (p.y0 < 6 * PontosPorCm ? 3.5 : 3.0)) * PontosPorCm + 0.05);
        EXPECT_LE(p.y1, (Margem + 6) * PontosPorCm + 1) << p.texto;
    }
    EXPECT_THAT(arquivo.Texto(2), HasSubstr("…"));
}

TEST(Ajuste, TheBoxesOfTheReportsHoldTheirTextsUnchanged) {
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        Escrever(doc, {0, 0, 17, 0.3}, "DRQ Não Consistida", {.tamanho = 8});
        Escrever(doc, {0, 1, 5, 0.5}, "1.234,56", {.vertical = 1, .tamanho = 9});
        Escrever(doc, {0, 2, 3, 1.144}, "VELO", {.vertical = 1, .tamanho = 20});
        Escrever(doc, {0, 4, 4.84, 0.49}, "VENCIMENTO",
                 {.vertical = 2, .fonte = "Times New Roman", .tamanho = 5});
        Escrever(doc, {0, 6, 16.8, 1.4}, "Uma linha\r\nOutra",
                 {.vertical = 1, .tamanho = 14, .multilinha = true});
    }));
    EXPECT_TRUE(arquivo.Resultado().cortados.empty());
    const auto palavras = arquivo.Palavras(1);
    ASSERT_EQ(palavras.size(), 9U);
    const double alturas[] = {8, 8, 8, 9, 20, 5, 14, 14, 14};
    for (std::size_t i = 0; i < palavras.size(); ++i) {
        EXPECT_NEAR(palavras[i].y1 - palavras[i].y0, alturas[i] * 1.117, 0.1) << i;
    }
}

TEST(Ajuste, ALineTooTallForItsBoxIsSetSmallerAndReportedOnlyWhenItStillStandsOut) {
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        Escrever(doc, {0, 0, 5, 0.3}, "menor", {.vertical = 1, .tamanho = 14});
        Escrever(doc, {0, 1, 5, 0.1}, "demais", {.vertical = 1, .tamanho = 14});
    }));
    const auto palavras = arquivo.Palavras(1);
    ASSERT_EQ(palavras.size(), 2U);
    // Its capitals and descenders, 0.9 of the size, fill the box.
    EXPECT_NEAR(palavras[0].y1 - palavras[0].y0, 0.3 * PontosPorCm * 1.117 / 0.9, 0.05);
    ASSERT_EQ(arquivo.Resultado().cortados.size(), 1U);
    EXPECT_EQ(arquivo.Resultado().cortados[0].texto, "demais");
}

TEST(Ajuste, WrappedTextBreaksAtBlanksAndAtEveryKindOfLineBreak) {
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        Escrever(doc, {0, 0, 3.4, 10}, "um dois três quatro cinco seis\r\nsete\noito\r\n\r\nnove",
                 {.multilinha = true});
    }));
    const auto palavras = arquivo.Palavras(1);
    ASSERT_EQ(palavras.size(), 9U);
    const double linha = 8 * 1.117;
    const int linhas[] = {0, 0, 0, 0, 0, 1, 2, 3, 5};
    for (std::size_t i = 0; i < palavras.size(); ++i) {
        EXPECT_NEAR(palavras[i].y0, Margem * PontosPorCm + linhas[i] * linha, 0.05)
            << palavras[i].texto;
        EXPECT_LE(palavras[i].x1, (Margem + 3.4) * PontosPorCm);
    }
}

TEST(Ajuste, ABlockTooTallIsSetSmallerUntilItFits) {
    const std::string texto = "Estabelecimento centralizador da apuração de três filiais no Estado";
    const ArquivoPDF arquivo(Documento([&](DocumentoRelatorio& doc) {
        Escrever(doc, {0, 0, 3, 1}, texto, {.multilinha = true});
    }));
    EXPECT_TRUE(arquivo.Resultado().cortados.empty());
    const auto palavras = arquivo.Palavras(1);
    ASSERT_EQ(palavras.size(), 9U);
    const double altura = palavras[0].y1 - palavras[0].y0;
    EXPECT_LT(altura, 8 * 1.117);
    EXPECT_GE(altura, 0.6 * 8 * 1.117 - 0.05);
    EXPECT_LE(palavras.back().y1, (Margem + 1) * PontosPorCm + 1);
}

TEST(Ajuste, AnOverlongWordIsBrokenWhileOthersMakeTheBlockSmaller) {
    const std::string endereco(90, 'w');
    const ArquivoPDF arquivo(Documento([&](DocumentoRelatorio& doc) {
        Escrever(doc, {0, 0, 5, 3}, "site " + endereco, {.multilinha = true});
        Escrever(doc, {0, 5, 1.6, 3}, "Interestaduais", {.multilinha = true});
    }));
    EXPECT_TRUE(arquivo.Resultado().cortados.empty());
    auto palavras = arquivo.Palavras(1);
    ASSERT_GT(palavras.size(), 4U);
    EXPECT_EQ(palavras.back().texto, "Interestaduais");
    EXPECT_LE(palavras.back().x1, (Margem + 1.6) * PontosPorCm + 0.05);
    palavras.pop_back();
    std::string junto;
    for (const auto& p : palavras) {
        EXPECT_NEAR(p.y1 - p.y0, 8 * 1.117, 0.05);
        EXPECT_LE(p.x1, (Margem + 5) * PontosPorCm + 0.05);
        junto += p.texto;
    }
    EXPECT_EQ(junto, "site" + endereco);
}

TEST(Ajuste, AnyUnicodeTextComesBackOrShowsThatAPictureIsMissing) {
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        Escrever(doc, {0, 0, 17, 1}, "“Ação” – 5 € … João", {.tamanho = 10});
        Escrever(doc, {0, 1, 17, 1}, "Жизнь Ελλάδα İstanbul ≤ ação", {.tamanho = 10});
        Escrever(doc, {0, 2, 17, 1}, "compo\xCC\x81sto n\xCC\x83o", {.tamanho = 10});
        Escrever(doc, {0, 3, 17, 1},
                 "A\xFF"
                 "B\xE7\xE3o \xED\xA0\x80 漢 😀 fim",
                 {.tamanho = 10});
        Escrever(doc, {0, 4, 17, 1}, "um\ttab\x01\x7F\xC2\xAD novo\r\nresto", {.tamanho = 10});
        Escrever(doc, {0, 5, 17, 1}, "(a) \\ b) ((", {.tamanho = 10});
    }));
    const std::string texto = arquivo.Texto(1);
    EXPECT_THAT(texto, HasSubstr("“Ação” – 5 € … João\n"));
    EXPECT_THAT(texto, HasSubstr("Жизнь Ελλάδα İstanbul ≤ ação\n"));
    EXPECT_THAT(texto, HasSubstr("compósto ño\n"));
    EXPECT_THAT(texto, HasSubstr("A?B??o ? ? ? fim\n"));
    EXPECT_THAT(texto, HasSubstr("um tab novo resto\n"));
    EXPECT_THAT(texto, HasSubstr("(a) \\ b) ((\n"));
    EXPECT_EQ(Executar("qpdf --check " + arquivo.Nome() + " 2>&1").estado, 0);
}

TEST(Ajuste, BoxesAndSizesOfNoSenseAreDrawnWithoutHarm) {
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        for (const double medida : {0.0, -1.0, 1e300, -1e300}) {
            for (const bool multilinha : {false, true}) {
                Escrever(doc, {medida, medida, medida, medida}, "texto qualquer",
                         {.horizontal = 1, .vertical = 1, .multilinha = multilinha});
                Escrever(doc, {1, 1, 5, 5}, "texto",
                         {.tamanho = std::abs(medida) + 1e-3, .multilinha = multilinha});
            }
            doc.EscreverTexto(0, 0, 1e300, 1e300, "texto", 0, 0, "Arial", std::abs(medida) + 1e-3,
                              false, false, true, 0);
            doc.DesenharRetangulo(1, 1, medida, medida, true, 0, 255, 1);
            doc.DesenharRetanguloArredondado(1, 1, medida, medida, false, 1e300, 0, 255, -1);
            doc.DesenharLinha(1, 1, medida, medida, 0, 0, 0, 2);
        }
    }));
    EXPECT_EQ(Executar("qpdf --check " + arquivo.Nome() + " 2>&1").estado, 0);
    EXPECT_EQ(Executar("pdftoppm -r 20 " + arquivo.Nome() + " 2>&1 >/dev/null").texto, "");
}

TEST(Ajuste, AMissingFontIsAnErrorThatNamesWhatToInstall) {
    const Conteudo estranha = Documento([](DocumentoRelatorio& doc) {
        Escrever(doc, {0, 0, 5, 1}, "x", {.fonte = "Fonte Inexistente"});
    });
    std::string bytes;
    const Erro erro = apoio::ErroDe([&] { RenderizarPDF(estranha, bytes); });
    EXPECT_EQ(erro.Numero(), NumeroErro::FonteAusente);
    EXPECT_THAT(erro.Descricao(), HasSubstr("Fonte Inexistente"));

    // In a process of its own, whose machine has no fonts at all.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const apoio::PastaTemporaria pasta;
    std::ofstream(pasta / "fonts.conf")
        << "<fontconfig><dir>" << pasta.Caminho().string() << "</dir></fontconfig>";
    const Ambiental semFontes("FONTCONFIG_FILE", (pasta / "fonts.conf").c_str());
    EXPECT_EXIT(
        {
            const Conteudo arial = Documento([](DocumentoRelatorio& doc) {
                Escrever(doc, {0, 0, 5, 1}, "x");
            });
            const Erro outro = apoio::ErroDe([&] { RenderizarPDF(arial, bytes); });
            std::fputs(outro.what(), stderr);
            std::_Exit(static_cast<int>(outro.Numero()) - 20000);
        },
        testing::ExitedWithCode(5), "Arial.*fonts-liberation");
}

}  // namespace
}  // namespace tarvo
