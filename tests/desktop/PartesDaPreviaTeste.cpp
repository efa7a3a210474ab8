#include <gmock/gmock.h>

#include "platform/desktop/BuscaTexto.h"
#include "platform/desktop/CelulasDeTexto.h"
#include "platform/desktop/DisposicaoPaginas.h"

namespace tarvo {
namespace {

using testing::ElementsAre;
using namespace Qt::StringLiterals;

DisposicaoPaginas Disposicao(bool continuo, const QSize& janela) {
    return {.paginas = 5, .pagina = {200, 300}, .janela = janela, .continuo = continuo, .atual = 2};
}

TEST(DisposicaoPaginas, PagesStandBelowEachOtherAndInTheMiddle) {
    const auto d = Disposicao(true, {400, 350});
    EXPECT_EQ(d.Conteudo(), QSize(224, 5 * 312 - 12 + 24));
    EXPECT_EQ(d.Origem(0), QPoint(12 + 88, 12));
    EXPECT_EQ(d.Origem(4), QPoint(12 + 88, 12 + 4 * 312));
    const auto larga = Disposicao(true, {100, 2000});
    EXPECT_EQ(larga.Origem(0), QPoint(12, 12 + (2000 - 1572) / 2));
}

TEST(DisposicaoPaginas, TheCurrentPageIsTheOneThatShowsMost) {
    const auto d = Disposicao(true, {400, 350});
    EXPECT_EQ(d.PaginaPrincipal(0), 0);
    EXPECT_EQ(d.PaginaPrincipal(12 + 149), 0);
    EXPECT_EQ(d.PaginaPrincipal(12 + 151), 1);
    EXPECT_EQ(d.PaginaPrincipal(12 + 312), 1);
    EXPECT_EQ(d.PaginaPrincipal(100'000), 4);
    // A page higher than the view is current while it fills half of the view.
    const auto baixa = Disposicao(true, {400, 100});
    EXPECT_EQ(baixa.PaginaPrincipal(12 + 240), 0);
    EXPECT_EQ(baixa.PaginaPrincipal(12 + 260), 1);
}

TEST(DisposicaoPaginas, APageAloneTakesTheWholeView) {
    const auto d = Disposicao(false, {400, 500});
    EXPECT_EQ(d.Conteudo(), QSize(224, 324));
    EXPECT_EQ(d.Origem(2), QPoint(100, 100));
    EXPECT_EQ(d.PaginaEm(0), 2);
    EXPECT_EQ(d.PaginaEm(10'000), 2);
}

TEST(BuscaTexto, FoldsCaseAccentsAndBlanksAndKeepsThePlaces) {
    std::vector<int> posicoes;
    EXPECT_EQ(BuscaTexto::Dobrar(u"Ção  \r\nÉ"_s, &posicoes), u"cao e"_s);
    EXPECT_THAT(posicoes, ElementsAre(0, 1, 2, 3, 7));
    EXPECT_EQ(BuscaTexto::Dobrar(u"nº ½ €"_s), u"nº ½ €"_s);
}

Texto TextoEm(double x, double y, std::string texto) {
    Texto t;
    t.caixa = {x, y, 2, 0.5};
    t.texto = std::move(texto);
    return t;
}

TEST(CelulasDeTexto, RowsComeFromTopToBottomAndCellsFromLeftToRight) {
    Conteudo conteudo;
    conteudo.margens = {2, 2, 2, 2};
    conteudo.paginas = {{TextoEm(3, 1.02, "b"), TextoEm(0, 2, "c\r\nd"), TextoEm(0, 1, "a")},
                        {TextoEm(0, 0, "%%p/%%P")}};
    const CelulasDeTexto celulas(conteudo);
    const QRectF tudo(0, 0, 600, 900);
    EXPECT_EQ(celulas.Copiar(0, tudo), u"a\tb\nc d"_s);
    EXPECT_EQ(celulas.Copiar(1, tudo), u"2/2"_s);
    EXPECT_EQ(celulas.Copiar(2, tudo), QString());
    // 2 cm of margin, then 3 cm: the second column only.
    EXPECT_EQ(celulas.Copiar(0, QRectF(5 * 72 / 2.54 + 1, 0, 10, 900)), u"b"_s);
    ASSERT_EQ(celulas.Caixas(0, tudo).size(), 3U);
    EXPECT_NEAR(celulas.Caixas(0, tudo)[0].x(), 5 * 72 / 2.54, 0.01);
}

}  // namespace
}  // namespace tarvo
