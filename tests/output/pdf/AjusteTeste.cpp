// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <fstream>

#include "tests/output/pdf/ApoioPDF.h"

// What happens to texts that do not fit their boxes or are not Latin.
namespace tarvo {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

TEST(Ajuste, ALineTooLongIsCondensedToItsBoxWithNothingLost) {
    const std::string texto = "Ressarcimento do imposto retido por substituição";
    const ArquivoPDF arquivo(
        Textos({{{0, 0, 10, 0.6}, texto}, {{0, 2, 5, 0.6}, texto, {.horizontal = 2}}}));
    EXPECT_THAT(arquivo.Resultado().cortados, IsEmpty());
    const auto palavras = arquivo.Palavras(1, 12);
    EXPECT_EQ(palavras.back().texto, "substituição");
    EXPECT_NEAR(palavras.back().x1, Pontos(5), 0.1);
    EXPECT_NEAR(palavras[6].x0, Pontos(0), 0.1);
    // Condensed, not set smaller.
    EXPECT_NEAR(palavras[6].Altura(), palavras[0].Altura(), 0.01);
}

TEST(Ajuste, WhatDoesNotFitAtSixtyPerCentIsCutMarkedAndReportedWithItsPage) {
    const std::string longo = "Distribuidora de Combustíveis e Lubrificantes Planalto";
    constexpr Caixa C{1, 3, 2.5, 0.6};
    const ArquivoPDF arquivo(Paginas(2, [&](DocumentoRelatorio& doc, int pagina) {
        if (pagina == 0) {
            Escrever(doc, {{0, 0, 10, 0.6}, "cabe"});
            return;
        }
        Escrever(doc, {C, longo});
        Escrever(doc, {{0, 5, 3, 1},
                       longo + " " + longo + " " + longo + " " + longo + " " + longo,
                       {.multilinha = true}});
    }));
    const auto& cortados = arquivo.Resultado().cortados;
    ASSERT_THAT(cortados, SizeIs(2));
    EXPECT_EQ(cortados[0].pagina, 2U);
    EXPECT_EQ(cortados[0].caixa, C);
    EXPECT_EQ(cortados[0].texto, longo);
    EXPECT_EQ(cortados[1].pagina, 2U);
    for (const auto& p : arquivo.Palavras(2)) {
        EXPECT_LE(p.x1, Pontos(p.y0 < 6 * 72 / 2.54 ? 3.5 : 3.0) + 0.05);
        EXPECT_LE(p.y1, Pontos(6) + 1) << p.texto;
    }
    EXPECT_THAT(arquivo.TextoVisto(2), HasSubstr("…"));
}

TEST(Ajuste, ATextThatFillsItsBoxExactlyIsSetAsItIs) {
    // Its width at one point, in cm: every size then fills its box to the hundredth of a point.
    const double largura = (2 * (0.667 + 0.556 + 0.222 + 0.222) + 0.278) * 2.54 / 72;
    const ArquivoPDF arquivo(Documento([largura](DocumentoRelatorio& doc) {
        for (int i = 0; i < 16; ++i) {
            const double tamanho = 6 + i * 0.5;
            Escrever(doc, {{0, i * 1.0, largura * tamanho, 1},
                           "Ágil Ágil",
                           {.tamanho = tamanho, .multilinha = true}});
        }
    }));
    const auto palavras = arquivo.Palavras(1, 32);
    for (std::size_t i = 0; i < palavras.size(); i += 2) {
        EXPECT_NEAR(palavras[i].Altura(), (6 + static_cast<double>(i) / 4) * AlturaDaLinha, 0.02);
        EXPECT_EQ(palavras[i].y0, palavras[i + 1].y0) << "in one line";
    }
}

TEST(Ajuste, ACutTextFillsItsBoxUpToTheEllipsisAndHasNoBlankBeforeIt) {
    const std::string texto = "um a dois b três c quatro d cinco e seis f sete g oito h nove";
    const ArquivoPDF arquivo(Documento([&](DocumentoRelatorio& doc) {
        for (int i = 0; i < 40; ++i) {
            Escrever(doc, {{0, i * 0.6, 1 + i * 0.05, 0.6}, texto});
        }
    }));
    EXPECT_THAT(arquivo.Resultado().cortados, SizeIs(40));
    EXPECT_THAT(arquivo.TextoVisto(1), testing::Not(HasSubstr(" …")));
    int linhas = 0;
    for (const auto& palavra : arquivo.Palavras(1)) {
        if (palavra.texto == "dois") {
            EXPECT_NEAR(palavra.Largura(), 0.6 * 8 * (0.556 + 0.556 + 0.222 + 0.5), 0.05);
        }
        if (palavra.texto.ends_with("…")) {
            const double fim = Pontos(1 + linhas++ * 0.05);
            EXPECT_LE(palavra.x1, fim + 0.05);
            // A blank and the widest of these letters, condensed.
            EXPECT_GT(palavra.x1, fim - 8 * 0.6 * (0.278 + 0.556) - 0.05);
        }
    }
    EXPECT_EQ(linhas, 40);
}

TEST(Ajuste, ACutTextOfShapedLettersFillsItsBoxWithTheirKerningToo) {
    std::string texto;
    for (int i = 0; i < 100; ++i) {
        texto += "ΑΥ";
    }
    const ArquivoPDF arquivo(Textos(
        {{{0, 0, 10, 0.6}, texto}, {{0, 2, 10, 0.3}, texto + " fim", {.multilinha = true}}}));
    EXPECT_THAT(arquivo.Resultado().cortados, SizeIs(2));
    const auto palavras = arquivo.Palavras(1, 2);
    for (const auto& [p, corpo] : {std::pair(palavras[0], 8 * 0.6), std::pair(palavras[1], 4.8)}) {
        EXPECT_LE(p.x1, Pontos(10) + 0.05);
        EXPECT_GT(p.x1, Pontos(10) - 0.667 * corpo) << "less than a letter is left free";
    }
}

TEST(Ajuste, ALineIsSetSmallerOnlyForABoxLowerThanItsLetters) {
    const ArquivoPDF arquivo(Textos({{{0, 0, 5, 0.3}, "conserva"},
                                     {{0, 1, 5, 0.3}, "diminui", {.vertical = 1, .tamanho = 14}},
                                     {{0, 2, 5, 0.1}, "demais", {.vertical = 1, .tamanho = 14}}}));
    const auto palavras = arquivo.Palavras(1, 3);
    EXPECT_NEAR(palavras[0].Altura(), 8 * AlturaDaLinha, 0.05);
    // Its capitals and descenders, 0.9 of the size, fill the box.
    EXPECT_NEAR(palavras[1].Altura(), 0.3 * 72 / 2.54 * AlturaDaLinha / 0.9, 0.05);
    // What still stands out at 60 % is reported.
    EXPECT_NEAR(palavras[2].Altura(), 0.6 * 14 * AlturaDaLinha, 0.05);
    ASSERT_THAT(arquivo.Resultado().cortados, SizeIs(1));
    EXPECT_EQ(arquivo.Resultado().cortados[0].texto, "demais");
}

TEST(Ajuste, WrappedTextBreaksAtBlanksAndAtEveryKindOfLineBreak) {
    const ArquivoPDF arquivo(Textos({{{0, 0, 3.4, 10},
                                      "um dois três quatro cinco seis\r\nsete\noito\r\n\r\nnove",
                                      {.multilinha = true}}}));
    const int linhas[] = {0, 0, 0, 0, 0, 1, 2, 3, 5};
    const auto palavras = arquivo.Palavras(1, std::size(linhas));
    for (std::size_t i = 0; i < palavras.size(); ++i) {
        EXPECT_NEAR(palavras[i].y0, Pontos(0) + linhas[i] * 8 * AlturaDaLinha, 0.05)
            << palavras[i].texto;
        EXPECT_LE(palavras[i].x1, Pontos(3.4));
    }
}

TEST(Ajuste, ABlockTooTallIsSetSmallerUntilItFits) {
    const ArquivoPDF arquivo(
        Textos({{{0, 0, 3, 1},
                 "Estabelecimento centralizador da apuração de três filiais no Estado",
                 {.multilinha = true}}}));
    EXPECT_THAT(arquivo.Resultado().cortados, IsEmpty());
    const auto palavras = arquivo.Palavras(1, 9);
    EXPECT_LT(palavras[0].Altura(), 8 * AlturaDaLinha);
    EXPECT_GE(palavras[0].Altura(), 0.6 * 8 * AlturaDaLinha - 0.05);
    EXPECT_LE(palavras.back().y1, Pontos(1) + 1);
}

TEST(Ajuste, ABlockIsCutRatherThanSetSmallerThanCanBeRead) {
    const std::string texto =
        "Operações interestaduais com mercadorias sujeitas ao regime de retenção";
    const ArquivoPDF arquivo(
        Textos({{{0, 0, 3, 0.3}, texto, {.tamanho = 6, .multilinha = true}},
                {{0, 5, 3, 0.3}, texto + texto, {.tamanho = 4, .multilinha = true}}}));
    EXPECT_THAT(arquivo.Resultado().cortados, SizeIs(2));
    const auto palavras = arquivo.Palavras(1);
    EXPECT_NEAR(palavras.front().Altura(), 4.5 * AlturaDaLinha, 0.02);
    EXPECT_NEAR(palavras.back().Altura(), 4 * AlturaDaLinha, 0.02);
}

TEST(Ajuste, AnOverlongWordIsBrokenWhileOthersMakeTheBlockSmaller) {
    const std::string endereco(90, 'w');
    const ArquivoPDF arquivo(Textos({{{0, 0, 5, 3}, "site " + endereco, {.multilinha = true}},
                                     {{0, 5, 1.6, 3}, "Interestaduais", {.multilinha = true}}}));
    EXPECT_THAT(arquivo.Resultado().cortados, IsEmpty());
    auto palavras = arquivo.Palavras(1);
    EXPECT_EQ(palavras.back().texto, "Interestaduais");
    EXPECT_LE(palavras.back().x1, Pontos(1.6) + 0.05);
    palavras.pop_back();
    std::string junto;
    for (const auto& p : palavras) {
        EXPECT_NEAR(p.Altura(), 8 * AlturaDaLinha, 0.05);
        EXPECT_LE(p.x1, Pontos(5) + 0.05);
        junto += p.texto;
    }
    EXPECT_EQ(junto, "site" + endereco);
}

TEST(Ajuste, AnyUnicodeTextComesBackOrShowsThatAPictureIsMissing) {
    const std::pair<const char*, const char*> casos[] = {
        {"“Ação” – 5 € … João", "“Ação” – 5 € … João"},
        {"Жизнь Ελλάδα İstanbul ≤ ação", "Жизнь Ελλάδα İstanbul ≤ ação"},
        {"compo\xCC\x81sto n\xCC\x83o", "compósto ño"},
        {"A\xFF\x42\xE7\xE3o \xED\xA0\x80 fim", "A?B??o ? fim"},
        {"um\ttab\x01\x7F novo\r\nresto", "um tab novo resto"},
        {"sem\u00AD\u200B\u200F\u202A\u202E\u2060\u2064\u2066\u2069\uFEFF\uFDD0\uFDEF\uFFFE"
         "\U0001FFFF"
         "largura",
         "semlargura"},
        {"(a) \\ b) ((", "(a) \\ b) (("}};
    const ArquivoPDF arquivo(Documento([&](DocumentoRelatorio& doc) {
        double y = 0;
        for (const auto& [texto, lido] : casos) {
            Escrever(doc, {{0, y++, 17, 1}, texto, {.tamanho = 10}});
        }
    }));
    for (const auto& [texto, lido] : casos) {
        EXPECT_THAT(arquivo.TextoVisto(1), HasSubstr(lido + std::string("\n")));
    }
    arquivo.EsperarSemFaltas();
}

TEST(Ajuste, ACharacterThatTheFontLacksComesFromAnotherOneOrIsTold) {
    const std::string deOutra = "Հայ ☃ q";
    const std::string deNenhuma = "a\u0378b";
    const ArquivoPDF arquivo(
        Textos({{{0, 0, 5, 1}, deOutra + "\u0302", {.horizontal = 2}},
                {{0, 1, 5, 1}, "λ\u1F73γω", {.horizontal = 2}},  // the one letter's other code
                {{0, 2, 5, 1}, deNenhuma, {.horizontal = 2}}}));
    EXPECT_THAT(arquivo.TextoVisto(1),
                AllOf(HasSubstr(deOutra), HasSubstr("λέγω"), HasSubstr("a?b")));
    const auto& cortados = arquivo.Resultado().cortados;
    ASSERT_THAT(cortados, SizeIs(1));
    EXPECT_EQ(cortados[0].texto, deNenhuma);
    // Each is drawn as wide as it was measured.
    for (const auto& palavra : arquivo.Palavras(1)) {
        EXPECT_LE(palavra.x1, Pontos(5) + 0.05) << palavra.texto;
    }
    EXPECT_NEAR(arquivo.Palavras(1).back().x1, Pontos(5), 0.05);
    EXPECT_THAT(arquivo.Dito("pdffonts"), testing::ContainsRegex("DejaVu[^\n]*yes yes yes"));
    arquivo.EsperarSemFaltas();
}

TEST(Ajuste, AMissingFontIsAnErrorThatNamesWhatToInstall) {
    const Erro erro = apoio::ErroDe([] {
        Renderizar(Textos({{{0, 0, 5, 1}, "x", {.fonte = "Fonte Inexistente"}}}));
    });
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
            const Erro outro = apoio::ErroDe([] { Renderizar(Textos({{{0, 0, 5, 1}, "x"}})); });
            std::fputs(outro.what(), stderr);
            std::_Exit(static_cast<int>(outro.Numero()) - 20000);
        },
        testing::ExitedWithCode(5), "Arial.*fonts-liberation");
}

}  // namespace
}  // namespace tarvo
