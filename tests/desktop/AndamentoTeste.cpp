#include "platform/desktop/AndamentoQt.h"

#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>

#include "tests/desktop/Previas.h"

namespace tarvo {
namespace {

class Andamento : public testing::Test {
  protected:
    Andamento() { documento.Iniciar(); }
    static auto Avisos() { return apoio::Abertas<QProgressDialog>("andamento"); }

    AndamentoQt andamento;
    DocumentoRelatorio documento{{.andamento = &andamento}};
};

TEST_F(Andamento, AShortBuildShowsNothing) {
    for (int i = 0; i < 100; ++i) {
        documento.NovaPagina();
    }
    EXPECT_TRUE(Avisos().empty());
}

TEST_F(Andamento, ALongBuildTellsItsPagesAndCanBeCancelled) {
    bool apertado = false;
    QTimer usuario;
    QObject::connect(&usuario, &QTimer::timeout, [&] {
        for (auto* aviso : Avisos()) {
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
    EXPECT_TRUE(Avisos().empty());
}

}  // namespace
}  // namespace tarvo
