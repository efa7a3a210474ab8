// SPDX-License-Identifier: MIT
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPdfDocument>
#include <QTabWidget>

#include "desktop/AreaDeTrabalho.h"
#include "tests/desktop/Previas.h"

namespace tarvo {
namespace {

using apoio::MontarTabela;
using namespace Qt::StringLiterals;

class RodadaDePrevias : public apoio::Previas {
  protected:
    void Mostrar(int paginas) {
        MontarTabela(documento, paginas);
        documento.Exibir();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&Unica()));
    }

    DocumentoRelatorio documento{ambiente};
};

TEST_F(RodadaDePrevias, SeveralStandSideBySideAndGoWithTheirOwners) {
    Mostrar(1);
    Unica().setGeometry(60, 70, 610, 520);
    documento.Ocultar();  // and the place is remembered
    documento.Exibir();
    auto outro = std::make_unique<DocumentoRelatorio>(ambiente);
    MontarTabela(*outro, 400);
    outro->DefinirTitulo("Relatório de Zeladoria");
    outro->Exibir();
    ASSERT_EQ(Abertas().size(), 2U);
    EXPECT_EQ(Abertas()[0]->geometry().topLeft(), QPoint(60, 70));
    EXPECT_EQ(Abertas()[1]->geometry().topLeft(), QPoint(88, 98));
    // Released in the middle of painting, of a search and of a question to the user.
    auto* segunda = Abertas()[1];
    segunda->findChild<QLineEdit*>(u"campoBusca"_s)->setText(u"linha"_s);
    QTest::keyClick(segunda->findChild<QWidget*>(u"paginas"_s), Qt::Key_S, Qt::ControlModifier);
    outro.reset();
    EXPECT_EQ(Abertas().size(), 1U);
    QTest::qWait(50);
    EXPECT_EQ(Situacao(), "Página 1 de 1");
}

TEST_F(RodadaDePrevias, ARunInTabsIsOneWindowThatIsRememberedPrintedAndSavedWhole) {
    Mostrar(2);
    Teclar("Ctrl+T");
    const auto comAbas = [] { return apoio::Abertas<QMainWindow>("visualizacoesEmAbas"); };
    EXPECT_TRUE(Esperar([&] { return comAbas().size() == 1 && Abertas().empty(); }));
    fabrica.Previas().Comecar();
    fabrica.Previas().nomeDeArquivo = "DRQ-25/01-2003-07";
    DocumentoRelatorio outro(ambiente);
    MontarTabela(outro, 3);
    outro.DefinirTitulo("Relatório de Zeladoria");
    outro.Exibir();
    fabrica.Previas().Concluir(nullptr);
    auto& janela = *comAbas().front();
    auto& abas = *janela.findChild<QTabWidget*>(u"abas"_s);
    ASSERT_EQ(abas.count(), 2);
    EXPECT_EQ(janela.windowTitle(), u"Relatório de Zeladoria"_s);
    janela.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&janela));
    // A shortcut reaches the tab in front and no other.
    auto* paginas = abas.currentWidget()->findChild<QWidget*>(u"paginas"_s);
    QTest::keyClick(paginas, Qt::Key_End);
    const auto situacao = [&](int aba) {
        return abas.widget(aba)->findChild<QLabel*>(u"situacaoPagina"_s)->text();
    };
    EXPECT_EQ(situacao(1), u"Página 3 de 3"_s);
    EXPECT_EQ(situacao(0), u"Página 1 de 2"_s);
    QTest::keyClick(paginas, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    auto* dialogo = janela.findChild<QFileDialog*>();
    ASSERT_NE(dialogo, nullptr);
    EXPECT_EQ(dialogo->selectedFiles().value(0).section(u'/', -1), u"DRQ-25-01-2003-07.pdf"_s);
    const auto arquivo = pasta / "todos.pdf";
    dialogo->selectFile(QString::fromStdString(arquivo.string()));
    QMetaObject::invokeMethod(dialogo, "accept");
    QPdfDocument salvo;
    salvo.load(QString::fromStdString(arquivo.string()));
    EXPECT_EQ(salvo.pageCount(), 5);
    // Back to windows of their own; closing one leaves the other.
    QTest::keyClick(paginas, Qt::Key_T, Qt::ControlModifier);
    EXPECT_TRUE(Esperar([&] { return comAbas().empty() && Abertas().size() == 2; }));
    Abertas()[0]->close();
    EXPECT_EQ(Unica().windowTitle(), u"Relatório de Zeladoria"_s);
    Teclar("Ctrl+T");
    EXPECT_TRUE(Esperar([&] { return comAbas().size() == 1; }));
    comAbas().front()->close();
    EXPECT_TRUE(comAbas().empty());
    EXPECT_EQ(fabrica.Previas().Abertas(), 0U);
}

TEST_F(RodadaDePrevias, WhatAHostShowsInAnswerToItsUserStaysInItsWindow) {
    auto& area = AbrirAreaDeTrabalho();
    const Ambiente doHospedeiro{.visualizadores = &area.Visualizadores()};
    auto um = std::make_unique<DocumentoRelatorio>(doHospedeiro);
    DocumentoRelatorio outro(doHospedeiro);
    MontarTabela(*um, 3);
    um->Exibir();
    auto* janela = &Unica();
    const auto teclar = [&](Qt::Key tecla) {
        janela->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(janela));
        QTest::keyClick(janela->findChild<QWidget*>(u"paginas"_s), tecla);
    };
    teclar(Qt::Key_End);
    MontarTabela(outro, 1);
    outro.Exibir();
    // The one in which it was asked stays in front.
    area.AoPedir([&](Pedido) {
        um->Exibir();
        outro.Exibir();
    });
    teclar(Qt::Key_F5);
    QTest::qWait(100);
    EXPECT_TRUE(janela->isActiveWindow());
    area.AoPedir([&](Pedido) {
        outro.Ocultar();
        um->Ocultar();
        EXPECT_TRUE(janela->isVisible());
        MontarTabela(*um, 5);
        um->Exibir();
    });
    teclar(Qt::Key_F5);
    EXPECT_EQ(&Unica(), janela);
    EXPECT_EQ(Situacao(), "Página 3 de 5");
    // The window goes with the report that the host releases.
    area.AoPedir([&](Pedido) { um.reset(); });
    teclar(Qt::Key_F5);
    EXPECT_TRUE(Abertas().empty());
    area.AoPedir(nullptr);
}

}  // namespace
}  // namespace tarvo
