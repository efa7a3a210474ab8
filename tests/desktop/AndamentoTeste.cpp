// SPDX-License-Identifier: MIT
#include "desktop/AndamentoQt.h"

#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>
#include <set>

#include "desktop/preview/DocumentoPronto.h"
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
    std::set<QString> lidos;
    QTimer usuario;
    QObject::connect(&usuario, &QTimer::timeout, [&] {
        for (auto* aviso : Avisos()) {
            EXPECT_TRUE(aviso->labelText().contains(QStringLiteral("páginas")));
            EXPECT_TRUE(aviso->isModal());
            lidos.insert(aviso->labelText());
            if (lidos.size() == 3) {
                QTest::mouseClick(aviso->findChild<QPushButton*>(), Qt::LeftButton);
            }
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
    EXPECT_EQ(lidos.size(), 3U) << "it goes on until the user wants no more";
    EXPECT_TRUE(Avisos().empty());
}

// By its work, since time says nothing on a busy machine: a thousand pages are far less than half a
// second's.
TEST_F(Andamento, PagesThatAreMadeReadyAskBeforeEachThousand) {
    constexpr std::size_t Paginas = 4000;
    apoio::MontarTabela(documento, Paginas);
    std::size_t perguntas = 0;
    Preparar(documento.Registrado(), [&] { return ++perguntas != 0; });
    EXPECT_GE(perguntas, Paginas / 1000);
    perguntas = 0;
    EXPECT_EQ(
        apoio::NumeroDe([&] { Preparar(documento.Registrado(), [&] { return ++perguntas < 2; }); }),
        NumeroErro::Cancelado);
    EXPECT_EQ(perguntas, 2U) << "nothing more is made once the answer was no";
}

TEST_F(Andamento, AnEndlessQueryIsCancelledInItsWindow) {
    apoio::BancoDeTeste banco(
        "DROP TABLE tblVELO; CREATE VIEW tblVELO AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
        "SELECT i + 1 FROM n) SELECT i AS IE FROM n WHERE i % 7 = 9");
    const Acompanhamento acompanhamento(*banco, &andamento);
    QTimer usuario;
    QObject::connect(&usuario, &QTimer::timeout, [&] {
        for (auto* aviso : Avisos()) {
            EXPECT_EQ(aviso->labelText(), QStringLiteral("Lendo o banco…"));
            QTest::mouseClick(aviso->findChild<QPushButton*>(), Qt::LeftButton);
        }
    });
    usuario.start(1);
    EXPECT_EQ(apoio::NumeroDe([&] {
                  banco->OpenRecordset("select * from tblVELO", TipoRecordset::ForwardOnly);
              }),
              NumeroErro::Cancelado);
    EXPECT_TRUE(Avisos().empty());
}

}  // namespace
}  // namespace tarvo
