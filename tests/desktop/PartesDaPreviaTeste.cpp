// SPDX-License-Identifier: MIT
#include <set>

#include "desktop/preview/BuscaTexto.h"
#include "desktop/preview/CelulasDeTexto.h"
#include "desktop/preview/DisposicaoPaginas.h"
#include "desktop/preview/DocumentoPronto.h"
#include "desktop/preview/PintorPaginas.h"
#include "desktop/preview/SelecaoDeCelulas.h"
#include "desktop/preview/VistaPaginas.h"
#include "tests/desktop/Previas.h"

namespace tarvo {
namespace {

using testing::ElementsAre;
using namespace Qt::StringLiterals;

TEST(DisposicaoPaginas, PagesStandInTheMiddleBelowEachOtherOrAlone) {
    DisposicaoPaginas d{.paginas = 5, .pagina = {200, 300}, .janela = {400, 500}, .atual = 2};
    EXPECT_EQ(d.Conteudo(), QSize(224, 5 * 312 - 12 + 24));
    EXPECT_EQ(d.Origem(4), QPoint(12 + 88, 12 + 4 * 312));
    d.continuo = false;
    EXPECT_EQ(d.Conteudo(), QSize(224, 324));
    EXPECT_EQ(d.Origem(2), QPoint(12 + 88, 12 + 88));
    EXPECT_EQ(d.PaginaEm({0, 10'000}), 2);
    // Two side by side, the fifth alone in the last row.
    d.continuo = true;
    d.colunas = 2;
    d.janela = {100, 100};
    EXPECT_EQ(d.Conteudo(), QSize(2 * 212 - 12 + 24, 3 * 312 - 12 + 24));
    EXPECT_EQ(d.Origem(3), QPoint(12 + 212, 12 + 312));
    EXPECT_EQ(d.PaginaEm({300, 400}), 3);
    EXPECT_EQ(d.PaginaEm({300, 10'000}), 4);
    EXPECT_EQ(d.PaginaEm({-50, -50}), 0);
    d.topo = {0, 350};
    EXPECT_EQ(d.Visiveis(), std::pair(2, 3));
}

TEST(DisposicaoPaginas, TheCurrentPageIsTheOneThatShowsMost) {
    DisposicaoPaginas d{.paginas = 5, .pagina = {200, 300}, .janela = {400, 350}};
    const auto principal = [&](int y) {
        d.topo = {0, y};
        return d.PaginaPrincipal();
    };
    EXPECT_EQ(principal(12 + 149), 0);
    EXPECT_EQ(principal(12 + 150), 0) << "exactly half of it shows";
    EXPECT_EQ(principal(12 + 151), 1);
    EXPECT_EQ(principal(100'000), 4);
    // A page higher than the view is current while it fills half of the view.
    d.janela = {400, 100};
    EXPECT_EQ(principal(12 + 250), 0) << "exactly half of the view";
    EXPECT_EQ(principal(12 + 251), 1);
}

TEST(BuscaTexto, FoldsCaseAccentsAndBlanksAndKeepsThePlaces) {
    std::vector<int> posicoes;
    EXPECT_EQ(BuscaTexto::Dobrar(u"Ção  \r\nÉ"_s, &posicoes), u"cao e"_s);
    EXPECT_THAT(posicoes, ElementsAre(0, 1, 2, 3, 7));
    EXPECT_EQ(BuscaTexto::Dobrar(u"nº ½ €"_s), u"nº ½ €"_s);
    // Letters in parts, as some programs write them, and with two accents.
    EXPECT_EQ(BuscaTexto::Dobrar(u"c\u0327a\u0303O\u0302 \u1ea5"_s, &(posicoes = {})), u"cao a"_s);
    EXPECT_THAT(posicoes, ElementsAre(0, 2, 4, 6, 7));
}

TEST(CelulasDeTexto, RowsComeFromTopToBottomAndCellsFromLeftToRight) {
    const auto em = [](double x, double y, const char* texto) {
        Texto t;
        t.caixa = {x, y, 2, 0.5};
        t.texto = texto;
        return t;
    };
    Conteudo conteudo;
    conteudo.margens = {2, 2, 2, 2};
    conteudo.paginas = {{em(3, 1.02, "b"), em(0, 2, "c\r\nd"), em(0, 1, "a")},
                        {em(0, 0, "%%p/%%P")}};
    const CelulasDeTexto celulas(conteudo);
    const QRectF tudo(0, 0, 600, 900);
    EXPECT_EQ(celulas.Copiar(0, tudo), u"a\tb\nc d"_s);
    EXPECT_EQ(celulas.Copiar(1, tudo), u"2/2"_s);
    EXPECT_EQ(celulas.Copiar(2, tudo), QString());
    // From one page to the next the columns go on.
    SelecaoDeCelulas selecao;
    selecao.Mostrar(&celulas);
    selecao.Comecar(1, {100, 80});
    EXPECT_TRUE(selecao.Estender(0, {60, 100}));
    EXPECT_EQ(selecao.Texto(), u"c d\n2/2"_s);
    EXPECT_EQ(selecao.Caixas(0).size(), 1U);
    // 2 cm of margin, then 3 cm: the second column only.
    EXPECT_EQ(celulas.Copiar(0, QRectF(5 * 72 / 2.54 + 1, 0, 10, 900)), u"b"_s);
    ASSERT_EQ(celulas.Caixas(0, tudo).size(), 3U);
    EXPECT_NEAR(celulas.Caixas(0, tudo)[0].x(), 5 * 72 / 2.54, 0.01);
}

TEST(VistaPaginas, AThousandPagesCostThePaintingOfThoseInSight) {
    DocumentoRelatorio documento;
    apoio::MontarTabela(documento, 1000);
    PintorPaginas pintor(Preparar(documento.Registrado()).pdf);
    std::set<int> pintadas;
    VistaPaginas vista(nullptr);
    pintor.aoPintar = [&](const Recorte& recorte) {
        pintadas.insert(recorte.pagina);
        vista.viewport()->update();
    };
    vista.resize(900, 700);
    vista.show();
    vista.Mostrar(&pintor, nullptr, nullptr);
    vista.IrPara(499);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pintadas.contains(499); }));
    vista.RolarTela(1);
    vista.RolarTela(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return pintadas.contains(501); }));
    EXPECT_THAT(pintadas, testing::IsSubsetOf({0, 1, 499, 500, 501, 502}));
}

}  // namespace
}  // namespace tarvo
