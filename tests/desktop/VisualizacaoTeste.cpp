// SPDX-License-Identifier: MIT
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QScrollBar>
#include <QStatusBar>
#include <QTableWidget>
#include <QToolButton>
#include <QWheelEvent>
#include <fstream>
#include <iterator>
#include <set>

#include "document/QuadroPagina.h"
#include "output/pdf/RenderizadorPDF.h"
#include "tests/desktop/Previas.h"

namespace tarvo {
namespace {

using apoio::MontarTabela;
using namespace Qt::StringLiterals;

class Visualizacao : public apoio::Previas {
  protected:
    void Mostrar(int paginas, std::int32_t orientacao = 0) {
        MontarTabela(documento, paginas, orientacao);
        documento.Exibir();
        Unica().resize(900, 700);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&Unica()));
    }
    static QAbstractScrollArea& Paginas() { return Parte<QAbstractScrollArea>("paginas"); }
    static QWidget& Area() { return *Paginas().viewport(); }
    static void GirarRoda(int angulo, Qt::KeyboardModifiers teclas = Qt::NoModifier) {
        constexpr QPointF Onde(50, 50);
        QWheelEvent roda(Onde, Area().mapToGlobal(Onde), {}, {0, angulo}, Qt::NoButton, teclas,
                         Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Area(), &roda);
    }
    static void Digitar(QLineEdit& campo, const QString& texto) {
        campo.selectAll();
        QTest::keyClicks(&campo, texto);
    }
    static std::string Copiado() {
        Teclar("Ctrl+C");
        return QApplication::clipboard()->text().toStdString();
    }
    // A place of the first page (cm) at 100 % when the page's corner is in the view.
    static QPoint Ponto(double x, double y) {
        return QPoint(12, 12) + (QPointF(x + 2, y + 2) * 96 / 2.54).toPoint();
    }
    // How many pixels of the view have about that colour.
    static int Pixels(QRgb cor) {
        const QImage tela = Area().grab().toImage();
        int quantos = 0;
        for (int y = 0; y < tela.height(); ++y) {
            for (int x = 0; x < tela.width(); ++x) {
                const QRgb p = tela.pixel(x, y);
                quantos += std::abs(qRed(p) - qRed(cor)) + std::abs(qGreen(p) - qGreen(cor)) +
                               std::abs(qBlue(p) - qBlue(cor)) <
                           30;
            }
        }
        return quantos;
    }

    DocumentoRelatorio documento{ambiente};
};

constexpr QRgb Achado = qRgb(255, 235, 90);
constexpr QRgb AchadoAtual = qRgb(255, 160, 40);

TEST_F(Visualizacao, ShowsTitleIconPageAndWhatWasCut) {
    MontarTabela(documento, 3);
    EscreverEmCaixa(documento, {}, 0, 8, 1, 0.4, "um texto que não cabe nesta caixa estreita");
    documento.Exibir();
    EXPECT_EQ(Unica().windowTitle(), u"Relatório de Apuração"_s);
    EXPECT_FALSE(Unica().windowIcon().isNull());
    EXPECT_EQ(Situacao(), "Página 1 de 3");
    auto& cortes = Parte<QToolButton>("situacaoAvisos");
    EXPECT_EQ(cortes.text(), u"1 texto cortado"_s);
    QTest::mouseClick(&cortes, Qt::LeftButton);
    auto* lista = Unica().findChild<QTableWidget*>();
    ASSERT_NE(lista, nullptr);
    EXPECT_EQ(Unica().focusWidget(), lista);
    EXPECT_EQ(lista->item(0, 1)->text(), u"um texto que não cabe nesta caixa estreita"_s);
    lista->selectRow(0);
    EXPECT_EQ(Situacao(), "Página 3 de 3");
    // The page is painted: the footer's teal bar, 17 cm wide.
    Teclar("Ctrl+1");
    EXPECT_TRUE(Esperar([] { return Pixels(qRgb(0, 128, 128)) > 500; }));
}

TEST_F(Visualizacao, GoesThroughThePagesByKeysAndByNumber) {
    Mostrar(12);
    const std::pair<const char*, const char*> teclas[] = {
        {"Ctrl+PgDown", "Página 2 de 12"},  {"Ctrl+PgDown", "Página 3 de 12"},
        {"Ctrl+PgUp", "Página 2 de 12"},    {"End", "Página 12 de 12"},
        {"Ctrl+PgDown", "Página 12 de 12"}, {"Home", "Página 1 de 12"}};
    auto& campo = Parte<QLineEdit>("campoPagina");
    for (const char* modo : {"contínuo", "página a página"}) {
        for (const auto& [tecla, situacao] : teclas) {
            Teclar(tecla);
            EXPECT_EQ(Situacao(), situacao) << modo << " " << tecla;
        }
        Teclar("Ctrl+G");
        EXPECT_TRUE(campo.hasFocus());
        QTest::keyClicks(&campo, u"7"_s);
        QTest::keyClick(&campo, Qt::Key_Return);
        EXPECT_EQ(Situacao(), "Página 7 de 12");
        EXPECT_TRUE(Parte<QWidget>("paginas").hasFocus());
        Teclar("Home");
        Teclar("Ctrl+3");
    }
}

TEST_F(Visualizacao, APageThatDoesNotExistIsSaidAndNotShown) {
    Mostrar(12);
    Teclar("Ctrl+Home");
    auto& campo = Parte<QLineEdit>("campoPagina");
    for (const char* pagina : {"5000", "13", "0", "nada", ""}) {
        Teclar("Ctrl+G");
        Digitar(campo, QString::fromUtf8(pagina));
        QTest::keyClick(&campo, Qt::Key_Backspace);  // an empty field too is something typed
        Digitar(campo, QString::fromUtf8(pagina));
        QTest::keyClick(&campo, Qt::Key_Return);
        EXPECT_EQ(Situacao(), "Página 1 de 12") << pagina;
        EXPECT_THAT(Unica().statusBar()->currentMessage().toStdString(),
                    testing::HasSubstr("de 1 a 12"))
            << pagina;
        EXPECT_EQ(campo.text(), u"1"_s);
        EXPECT_TRUE(campo.hasFocus());
        Unica().statusBar()->clearMessage();
    }
    // A number left behind by the Tab key counts, and the focus stays where Tab has put it.
    Digitar(campo, u"4"_s);
    QTest::keyClick(&campo, Qt::Key_Tab);
    EXPECT_EQ(Situacao(), "Página 4 de 12");
    EXPECT_FALSE(Parte<QWidget>("paginas").hasFocus());
}

TEST_F(Visualizacao, AScreenfulSkipsNothingAndReachesTheEnd) {
    Mostrar(4);
    auto& barra = *Paginas().verticalScrollBar();
    barra.setValue(barra.maximum() / 2);
    EXPECT_EQ(Situacao(), "Página 3 de 4");
    barra.setValue(0);
    for (const auto& [tecla, fim] :
         {std::pair{"PgDown", barra.maximum()}, {"PgUp", 0}, {"Space", barra.maximum()}}) {
        int telas = 0;
        while (barra.value() != fim && telas < 50) {
            const int antes = barra.value();
            Teclar(tecla);
            EXPECT_NE(barra.value(), antes) << tecla;
            EXPECT_LE(std::abs(barra.value() - antes), Area().height()) << tecla;
            ++telas;
        }
        EXPECT_LE(telas, 2 * barra.maximum() / Area().height()) << tecla;
    }
    // Where pages stand alone, the next one begins where the last one has ended.
    Teclar("Ctrl+3");
    Teclar("Home");
    Teclar("PgDown");
    EXPECT_EQ(Situacao(), "Página 1 de 4");
    barra.setValue(barra.maximum());
    Teclar("PgDown");
    EXPECT_EQ(Situacao(), "Página 2 de 4");
    EXPECT_EQ(barra.value(), 0);
    Teclar("Ctrl+1");
    for (const auto& [tecla, situacao] :
         {std::pair{"Space", "Página 3 de 4"}, {"Shift+Space", "Página 2 de 4"}}) {
        Teclar(tecla);
        EXPECT_EQ(Situacao(), situacao);
    }
    GirarRoda(-120);
    EXPECT_EQ(Situacao(), "Página 3 de 4");
}

TEST_F(Visualizacao, TheTabKeyReachesEveryControlAndComesBack) {
    MontarTabela(documento, 3);
    EscreverEmCaixa(documento, {}, 0, 8, 1, 0.4, "um texto que não cabe nesta caixa estreita");
    documento.Exibir();
    Teclar("F9");
    Teclar("Ctrl+F");
    Parte<QWidget>("paginas").setFocus();
    QStringList alcancados;
    do {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const auto* botao = qobject_cast<QToolButton*>(QApplication::focusWidget());
        alcancados << (botao != nullptr && botao->defaultAction() != nullptr
                           ? botao->defaultAction()->iconText()
                           : QApplication::focusWidget()->objectName());
    } while (alcancados.last() != u"paginas"_s && alcancados.size() < 40);
    for (const char* controle : {"paginas", "miniaturas", "campoBusca", "situacaoAvisos"}) {
        EXPECT_TRUE(alcancados.contains(QLatin1String(controle)))
            << controle << " in " << alcancados.join(u' ').toStdString();
    }
    // Those of the tool bar in the order in which they stand.
    EXPECT_THAT(
        alcancados.join(u';').toStdString(),
        testing::HasSubstr("Imprimir;Salvar como PDF;Painel lateral;campoPagina;Próxima página;"
                           "Última página;Reduzir;campoAmpliacao;Ampliar;"));
}

TEST_F(Visualizacao, MagnifiesByKeysWheelAndNumberWithinItsLimits) {
    Mostrar(2);
    Teclar("Ctrl+0");
    EXPECT_EQ(Ampliacao(), "100 %");
    Teclar("Ctrl++");
    EXPECT_EQ(Ampliacao(), "110 %");
    Teclar("Ctrl+-");
    Teclar("Ctrl+-");
    EXPECT_EQ(Ampliacao(), "90 %");
    auto& campo = Parte<QComboBox>("campoAmpliacao");
    for (const auto& [digitado, mostrado] : {std::pair{"130", "130 %"},
                                             {"80", "80 %"},
                                             {"137,5", "137,5 %"},
                                             {"62.5 %", "62,5 %"},
                                             {"5 %", "25 %"},
                                             {"9999", "800 %"},
                                             {"nada", "800 %"}}) {
        Digitar(*campo.lineEdit(), QString::fromUtf8(digitado));
        QTest::keyClick(campo.lineEdit(), Qt::Key_Return);
        EXPECT_EQ(Ampliacao(), mostrado);
    }
    EXPECT_THAT(Unica().statusBar()->currentMessage().toStdString(), testing::HasSubstr("nada"));
    Teclar("Ctrl+0");
    GirarRoda(120, Qt::ControlModifier);
    EXPECT_EQ(Ampliacao(), "120 %");
    Teclar("Ctrl+2");
    const auto largura = Ampliacao();
    Unica().resize(1200, 700);
    EXPECT_TRUE(Esperar([&] { return Ampliacao() != largura; }));
    Teclar("Ctrl+1");
    const auto inteira =
        QString::fromStdString(Ampliacao()).remove(u" %"_s).replace(u',', u'.').toDouble();
    EXPECT_NEAR(29.7 * 96 / 2.54 * inteira / 100, Area().height() - 24, 8);
}

TEST_F(Visualizacao, FindsWithoutAccentsAndMarksEveryHit) {
    Mostrar(5);
    Teclar("Ctrl+0");
    Teclar("Ctrl+F");
    auto& campo = Parte<QLineEdit>("campoBusca");
    EXPECT_TRUE(campo.hasFocus());
    const auto situacao = [] { return Parte<QLabel>("situacaoBusca").text(); };
    const auto procurar = [&](const QString& texto, const QString& esperada) {
        Digitar(campo, texto);
        EXPECT_TRUE(Esperar([&] { return situacao() == esperada; })) << texto.toStdString();
    };
    procurar(u"APURACAO"_s, u"1 de 5"_s);
    EXPECT_TRUE(Esperar([] { return Pixels(AchadoAtual) > 100; }));
    QTest::keyClick(&campo, Qt::Key_Return);
    EXPECT_EQ(situacao(), u"2 de 5"_s);
    EXPECT_EQ(Situacao(), "Página 2 de 5");
    Teclar("Shift+F3", &campo);
    Teclar("Shift+F3", &campo);
    EXPECT_EQ(situacao(), u"5 de 5"_s);
    EXPECT_EQ(Situacao(), "Página 5 de 5");
    Teclar("F3", &campo);
    EXPECT_EQ(Situacao(), "Página 1 de 5");

    campo.setText(u"Apurac\u0327a\u0303o"_s);
    EXPECT_TRUE(Esperar([&] { return situacao() == u"1 de 5"_s; }));
    procurar(u"linha"_s, u"1 de 15"_s);
    EXPECT_TRUE(Esperar([] { return Pixels(Achado) > 100 && Pixels(AchadoAtual) > 100; }));
    Teclar("Shift+F3", &campo);
    EXPECT_EQ(situacao(), u"15 de 15"_s) << "the last of its page";
    Teclar("F3", &campo);
    procurar(u"inexistente"_s, u"Nenhum resultado"_s);
    auto& exata = Parte<QCheckBox>("buscaExata");
    exata.click();
    procurar(u"apuracao"_s, u"Nenhum resultado"_s);
    campo.setText(u"Apuração"_s);
    EXPECT_TRUE(Esperar([&] { return situacao() == u"1 de 5"_s; }));
    // From anywhere in the window.
    Teclar("Esc", &Parte<QLineEdit>("campoPagina"));
    EXPECT_FALSE(campo.isVisible());
    EXPECT_EQ(Pixels(Achado) + Pixels(AchadoAtual), 0);
}

TEST_F(Visualizacao, CopiesTheCellsUnderTheMouseAsRowsAndColumns) {
    Mostrar(2);
    Teclar("Ctrl+0");
    QTest::mousePress(&Area(), Qt::LeftButton, {}, Ponto(1, 1.2));
    QTest::mouseMove(&Area(), Ponto(3, 1.4));
    QTest::mouseMove(&Area(), Ponto(6, 2.3));
    QTest::mouseRelease(&Area(), Qt::LeftButton, {}, Ponto(6, 2.3));
    EXPECT_EQ(Copiado(), "linha 1\tvalor 1.1\nlinha 2\tvalor 1.2");
    QTest::mouseDClick(&Area(), Qt::LeftButton, {}, Ponto(5, 3.3));
    EXPECT_EQ(Copiado(), "valor 1.3");
    Teclar("Ctrl+A");
    const std::string tudo = Copiado();
    EXPECT_THAT(tudo, testing::EndsWith("09/09/2001\t01:46:40\tPágina 1 de 2"));
    // Where nothing stands nothing is copied, and the clipboard is left alone.
    QTest::mouseClick(&Area(), Qt::LeftButton, {}, Ponto(10, 10));
    EXPECT_EQ(Copiado(), tudo);
}

TEST_F(Visualizacao, SavesTheVeryBytesThatAreShown) {
    Mostrar(2, 1);
    std::string esperado;
    RenderizarPDF(documento.Registrado(), esperado);
    Teclar("Ctrl+S");
    auto* dialogo = Unica().findChild<QFileDialog*>();
    ASSERT_NE(dialogo, nullptr);
    EXPECT_EQ(dialogo->selectedFiles().value(0).section(u'/', -1), u"Apuração - Teste.pdf"_s);
    const auto arquivo = pasta / "saída.pdf";
    dialogo->selectFile(QString::fromStdString(arquivo.string()));
    QMetaObject::invokeMethod(dialogo, "accept");
    std::ifstream gravado(arquivo, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(gravado), {}), esperado);
}

TEST_F(Visualizacao, ThumbnailsFollowThePageAndLeadToIt) {
    Mostrar(6);
    Teclar("F9");
    auto& miniaturas = Parte<QListView>("miniaturas");
    ASSERT_TRUE(miniaturas.isVisible());
    Teclar("End");
    EXPECT_EQ(miniaturas.currentIndex().row(), 5);
    const auto primeira = miniaturas.model()->index(0, 0);
    miniaturas.scrollTo(primeira);
    QTest::mouseClick(miniaturas.viewport(), Qt::LeftButton, {},
                      miniaturas.visualRect(primeira).center());
    EXPECT_EQ(Situacao(), "Página 1 de 6");
    Teclar("F9");
    EXPECT_FALSE(miniaturas.isVisible());
}

TEST_F(Visualizacao, ShownAgainItHasTheNewDocumentAtItsFirstPage) {
    Mostrar(5);
    Teclar("End");
    documento.Exibir();
    EXPECT_EQ(Situacao(), "Página 1 de 5");
    Teclar("End");
    documento.Ocultar();
    EXPECT_TRUE(Abertas().empty());
    MontarTabela(documento, 2, 1);
    documento.Exibir();
    Teclar("Ctrl+W");
    EXPECT_TRUE(Abertas().empty());
    documento.Exibir();
    EXPECT_EQ(Situacao(), "Página 1 de 2");
}

TEST_F(Visualizacao, RemembersPlaceAndMagnification) {
    Mostrar(3);
    Unica().setGeometry(60, 70, 610, 520);
    Teclar("Ctrl+0");
    Teclar("Ctrl++");
    Teclar("Ctrl+3");
    Teclar("F9");
    documento.Ocultar();
    DocumentoRelatorio outro(ambiente);
    MontarTabela(outro, 2);
    outro.Exibir();
    EXPECT_EQ(Unica().geometry(), QRect(60, 70, 610, 520));
    EXPECT_EQ(Ampliacao(), "110 %");
    EXPECT_TRUE(Parte<QListView>("miniaturas").isVisible());
    EXPECT_LT(Paginas().verticalScrollBar()->maximum(), 1000) << "one page alone";
    outro.Ocultar();
    ini.Gravar("Tarvo", "Visualizacao", "Ampliacao", "pagina");
    ini.Gravar("Tarvo", "Visualizacao", "Lugar", "lixo");
    DocumentoRelatorio terceiro(ambiente);
    MontarTabela(terceiro, 2);
    terceiro.Exibir();
    EXPECT_NE(Ampliacao(), "110 %");
}

TEST_F(Visualizacao, EveryActionTellsItsShortcutWhereItIsOffered) {
    Mostrar(1);
    int acoes = 0;
    for (auto* menu : Unica().menuBar()->actions()) {
        std::set<QKeySequence> mnemonicos;
        for (auto* acao : menu->menu()->actions()) {
            if (!acao->isSeparator()) {
                ++acoes;
                EXPECT_TRUE(mnemonicos.insert(QKeySequence::mnemonic(acao->text())).second)
                    << acao->text().toStdString();
                EXPECT_FALSE(acao->shortcut().isEmpty()) << acao->text().toStdString();
                EXPECT_TRUE(
                    acao->toolTip().contains(acao->shortcut().toString(QKeySequence::NativeText)));
            }
        }
    }
    EXPECT_EQ(acoes, 37);
}

}  // namespace
}  // namespace tarvo
