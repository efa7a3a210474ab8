// SPDX-License-Identifier: MIT
#include "desktop/dialog/JanelaSelecaoQt.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <functional>

#include "dispatch/Catalogo.h"

namespace tarvo {
namespace {

using testing::ElementsAre;
using namespace Qt::StringLiterals;

class JanelaSelecaoTeste : public testing::Test {
  protected:
    JanelaSelecaoTeste() {
        for (const auto& entrada : Catalogo()) {
            dialogo.lstSelecao.Acrescentar(entrada.rotulo);
        }
    }
    // Shows the dialog and lets the user act on it; closes it when the user left it open.
    void Mostrar(const std::function<void()>& usuario) {
        QTimer::singleShot(0, [&] {
            janela = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(janela, nullptr);
            ASSERT_TRUE(QTest::qWaitForWindowExposed(janela));
            lista = janela->findChild<QListWidget*>(u"lstSelecao"_s);
            ASSERT_NE(lista, nullptr);
            usuario();
            // A mnemonic presses its button for a tenth of a second.
            QTest::qWait(150);
            aberta = janela->isVisible();
            janela->reject();
        });
        dialogo.ExibirModal(qt);
    }
    [[nodiscard]] QPushButton* Botao(const QString& nome) const {
        return janela->findChild<QPushButton*>(nome);
    }
    void Clicar(int linha) const {
        const QRect area = lista->visualItemRect(lista->item(linha));
        QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, area.center());
    }
    [[nodiscard]] std::vector<std::size_t> Marcadas() const {
        std::vector<std::size_t> marcadas;
        for (std::size_t i = 0; i < dialogo.lstSelecao.Quantidade(); ++i) {
            if (dialogo.lstSelecao.Selecionada(i)) {
                marcadas.push_back(i);
            }
        }
        return marcadas;
    }

    JanelaSelecaoQt qt;
    frmImpressaoRelatorios dialogo;
    QDialog* janela = nullptr;
    QListWidget* lista = nullptr;
    bool aberta = true;
};

TEST_F(JanelaSelecaoTeste, SaysWhatItIsAndShowsEveryEntryWhole) {
    dialogo.lstSelecao.Selecionar(3, true);
    Mostrar([&] {
        EXPECT_EQ(janela->windowTitle(), u"Impressão de Relatórios"_s);
        EXPECT_TRUE(janela->isModal());
        EXPECT_FALSE(janela->windowIcon().isNull());
        EXPECT_EQ(Botao(u"cmdVisualizar"_s)->text(), u"&Visualizar Relatórios Selecionados"_s);
        EXPECT_EQ(Botao(u"cmdImprimir"_s)->text(), u"&Imprimir Relatórios Selecionados"_s);
        EXPECT_EQ(Botao(u"cmdSelecionarTodos"_s)->text(),
                  u"&Selecionar / Limpar Todos os Relatórios"_s);
        EXPECT_FALSE(janela->findChild<QLabel*>(u"declaracao"_s)->isVisible());
        EXPECT_EQ(janela->findChild<QLabel*>(u"Label1"_s)->buddy(), lista);
        EXPECT_EQ(lista->count(), 18);
        EXPECT_TRUE(lista->item(3)->isSelected());
        EXPECT_TRUE(lista->hasFocus());
        EXPECT_EQ(lista->currentRow(), 0);
        EXPECT_EQ(lista->verticalScrollBar()->maximum(), 0);
        janela->resize(10, 10);
        EXPECT_EQ(lista->horizontalScrollBar()->maximum(), 0);
        for (const auto* botao : janela->findChildren<QPushButton*>()) {
            EXPECT_GE(botao->width(), botao->sizeHint().width());
        }
    });
    EXPECT_THAT(Marcadas(), ElementsAre(3U));
}

TEST_F(JanelaSelecaoTeste, ClickAndSpaceToggleOneEntryEach) {
    Mostrar([&] {
        Clicar(2);
        Clicar(17);
        EXPECT_THAT(Marcadas(), ElementsAre(2U, 17U));
        QTest::qWait(QApplication::doubleClickInterval() + 50);
        Clicar(2);
        for (const auto tecla : {Qt::Key_Home, Qt::Key_Space, Qt::Key_Down, Qt::Key_Space}) {
            QTest::keyClick(lista, tecla);
        }
        EXPECT_THAT(Marcadas(), ElementsAre(0U, 1U, 17U));
        QTest::keyClick(lista, Qt::Key_Space);
        EXPECT_EQ(dialogo.lstSelecao.Foco(), 1U);
    });
    EXPECT_THAT(Marcadas(), ElementsAre(0U, 17U));
}

TEST_F(JanelaSelecaoTeste, SaysWhoseItIsAndTypingACodeFindsAnOfferedEntryAndMarksNothing) {
    dialogo.declaracao = "A <b>&amp; B</b> Ltda., DRQ 7, 01/2003";
    dialogo.lstSelecao.Remover(15);
    Mostrar([&] {
        const auto* linha = janela->findChild<QLabel*>(u"declaracao"_s);
        EXPECT_TRUE(linha->isVisible());
        EXPECT_EQ(linha->text().toStdString(), dialogo.declaracao);
        EXPECT_EQ(linha->textFormat(), Qt::PlainText);
        EXPECT_EQ(lista->count(), 17);
        Clicar(2);
        QTest::keyClick(lista, Qt::Key_Home);
        QTest::keyClicks(lista, u"16"_s);
        EXPECT_EQ(lista->currentRow(), 15);
        EXPECT_EQ(dialogo.lstSelecao.Foco(), 15U);
    });
    EXPECT_THAT(Marcadas(), ElementsAre(2U));
}

TEST_F(JanelaSelecaoTeste, SelectAllAndClearAllShowInTheList) {
    Mostrar([&] {
        Clicar(1);
        QTest::mouseClick(Botao(u"cmdSelecionarTodos"_s), Qt::LeftButton);
        EXPECT_EQ(lista->selectedItems().size(), 18);
        EXPECT_EQ(Marcadas().size(), 18U);
        QTest::keyClick(janela, Qt::Key_S, Qt::AltModifier);
        QTest::qWait(150);
        EXPECT_EQ(lista->selectedItems().size(), 0);
        EXPECT_EQ(Marcadas().size(), 0U);
    });
    EXPECT_TRUE(aberta);
    EXPECT_EQ(dialogo.lngModoSaida, 0);
}

TEST_F(JanelaSelecaoTeste, EachWayOutLeavesItsMode) {
    const struct {
        const char* como;
        std::function<void()> usuario;
        std::int32_t modo;
    } casos[] = {
        {"Enter", [&] { QTest::keyClick(lista, Qt::Key_Return); }, 1},
        {"preview", [&] { QTest::mouseClick(Botao(u"cmdVisualizar"_s), Qt::LeftButton); }, 1},
        {"Alt+V", [&] { QTest::keyClick(lista, Qt::Key_V, Qt::AltModifier); }, 1},
        {"print", [&] { QTest::mouseClick(Botao(u"cmdImprimir"_s), Qt::LeftButton); }, 2},
        {"Alt+I", [&] { QTest::keyClick(lista, Qt::Key_I, Qt::AltModifier); }, 2},
        {"Escape", [&] { QTest::keyClick(lista, Qt::Key_Escape); }, 0},
        {"close box", [&] { janela->close(); }, 0},
    };
    for (const auto& caso : casos) {
        dialogo.lngModoSaida = 0;
        Mostrar(caso.usuario);
        EXPECT_FALSE(aberta) << caso.como;
        EXPECT_EQ(dialogo.lngModoSaida, caso.modo) << caso.como;
    }
}

TEST_F(JanelaSelecaoTeste, TabGoesThroughListAndButtonsInTheirOrder) {
    Mostrar([&] {
        QStringList ordem;
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            ordem << QApplication::focusWidget()->objectName();
        }
        EXPECT_EQ(ordem, (QStringList{u"cmdVisualizar"_s, u"cmdImprimir"_s, u"cmdSelecionarTodos"_s,
                                      u"lstSelecao"_s}));
    });
}

}  // namespace
}  // namespace tarvo
