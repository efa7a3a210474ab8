#include "platform/desktop/AndamentoQt.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "document/DocumentoRelatorio.h"
#include "tests/apoio/Apoio.h"

namespace tarvo {
namespace {

QProgressDialog* Aviso() {
    for (auto* janela : QApplication::topLevelWidgets()) {
        if (janela->objectName() == QStringLiteral("andamento") && janela->isVisible()) {
            return qobject_cast<QProgressDialog*>(janela);
        }
    }
    return nullptr;
}

TEST(Andamento, AShortBuildShowsNothing) {
    AndamentoQt andamento;
    DocumentoRelatorio documento({.andamento = &andamento});
    documento.Iniciar();
    for (int i = 0; i < 100; ++i) {
        documento.NovaPagina();
    }
    EXPECT_EQ(Aviso(), nullptr);
}

TEST(Andamento, ALongBuildTellsItsPagesAndCanBeCancelled) {
    AndamentoQt andamento;
    DocumentoRelatorio documento({.andamento = &andamento});
    documento.Iniciar();
    bool apertado = false;
    QTimer usuario;
    QObject::connect(&usuario, &QTimer::timeout, [&] {
        if (auto* aviso = Aviso()) {
            EXPECT_TRUE(aviso->labelText().contains(QStringLiteral("páginas")));
            EXPECT_TRUE(aviso->isModal());
            apertado = true;
            QTest::mouseClick(aviso->findChild<QPushButton*>(), Qt::LeftButton);
        }
    });
    usuario.start(1);
    const Erro erro = apoio::ErroDe([&] {
        for (int i = 0; i < 500; ++i) {
            documento.NovaPagina();
            QTest::qSleep(10);
        }
    });
    EXPECT_EQ(erro.Numero(), NumeroErro::Cancelado);
    EXPECT_TRUE(apertado);
    EXPECT_EQ(Aviso(), nullptr);
}

}  // namespace
}  // namespace tarvo
