// SPDX-License-Identifier: MIT
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

#include "tests/desktop/Previas.h"
#include "tests/desktop/printing/ServicoDeImpressao.h"

namespace tarvo {
namespace {

using apoio::ErroDe;
using testing::AllOf;
using testing::HasSubstr;
using namespace Qt::StringLiterals;

class ImpressaoDaPrevia : public apoio::Previas {
  protected:
    static void SetUpTestSuite() { servico = std::make_unique<apoio::ServicoDeImpressao>(); }
    static void TearDownTestSuite() { servico.reset(); }
    ImpressaoDaPrevia() { apoio::MontarTabela(documento, 4); }
    void Imprimir(bool perguntar) { documento.Imprimir(perguntar); }
    static std::vector<QDialog*> Dialogos() { return apoio::Abertas<QDialog>("dialogoImpressao"); }
    // Waits for the print dialog and chooses a printer in it; the caller answers it.
    static QDialog& Perguntado(const QString& impressora) {
        if (!Esperar([] { return !Dialogos().empty(); })) {
            throw std::runtime_error("no print dialog");
        }
        Dialogos().front()->findChild<QComboBox*>(u"impressora"_s)->setCurrentText(impressora);
        return *Dialogos().front();
    }
    // Whether the printer's part of the dialog comes to be offered, or not.
    static bool Oferece(const QDialog& dialogo, const char* campo, bool oferece) {
        auto* parte = dialogo.findChild<QWidget*>(QLatin1String(campo));
        return QTest::qWaitFor([&] { return parte->isVisible() == oferece; });
    }
    static std::string TextoDe(const std::filesystem::path& pdf) {
        return apoio::SaidaDe("pdftotext '" + pdf.string() + "' - | grep '^Página'");
    }

    inline static std::unique_ptr<apoio::ServicoDeImpressao> servico;
    DocumentoRelatorio documento{ambiente};
};

TEST_F(ImpressaoDaPrevia, PrintsAtOnceOnTheUsersPrinter) {
    documento.DefinirTituloResumido("previa");
    setenv("LPDEST", "Laser", 1);
    Imprimir(false);
    unsetenv("LPDEST");
    EXPECT_THAT(apoio::SaidaDe("pdfinfo '" + servico->Chegada("previa").string() + "'"),
                HasSubstr("Pages:           4"));
    EXPECT_TRUE(Abertas().empty());
}

TEST_F(ImpressaoDaPrevia, AsksFirstWhenTold) {
    documento.DefinirTituloResumido("perguntada");
    QTimer::singleShot(0, [] { Perguntado(u"Direta"_s).accept(); });
    Imprimir(true);
    EXPECT_FALSE(servico->Chegada("perguntada").empty());

    const auto antes = servico->Trabalhos();
    QTimer::singleShot(0, [] { Perguntado(u"Direta"_s).reject(); });
    EXPECT_EQ(ErroDe([&] { Imprimir(true); }).Numero(), NumeroErro::Cancelado);
    EXPECT_EQ(servico->Trabalhos(), antes);
}

TEST_F(ImpressaoDaPrevia, WithoutADefaultPrinterARunAsksOnceAndSaysWhatWentWhere) {
    fabrica.Previas().Comecar();
    documento.DefinirTituloResumido("primeiro");
    QTimer::singleShot(0, [] {
        auto& dialogo = Perguntado(u"Direta"_s);
        EXPECT_FALSE(dialogo.findChild<QLineEdit*>(u"paginas"_s)->isVisible())
            << "of which report?";
        dialogo.accept();
    });
    Imprimir(false);
    documento.DefinirTituloResumido("segundo");
    Imprimir(false);
    fabrica.Previas().Concluir(nullptr);
    EXPECT_FALSE(servico->Chegada("primeiro").empty());
    EXPECT_FALSE(servico->Chegada("segundo").empty());
    const auto ditas = apoio::Abertas<QMessageBox>();
    ASSERT_EQ(ditas.size(), 1U);
    EXPECT_THAT(ditas[0]->text().toStdString(),
                AllOf(HasSubstr("primeiro (Direta)"), HasSubstr("segundo (Direta)")));
    ditas[0]->close();
    // The next run asks again.
    fabrica.Previas().Comecar();
    QTimer::singleShot(0, [] { Perguntado(u"Direta"_s).reject(); });
    EXPECT_EQ(ErroDe([&] { Imprimir(false); }).Numero(), NumeroErro::Cancelado);
    fabrica.Previas().Concluir(nullptr);
    EXPECT_TRUE(apoio::Abertas<QMessageBox>().empty());
}

TEST_F(ImpressaoDaPrevia, AllThatIsOpenIsPrintedAfterOneQuestion) {
    DocumentoRelatorio outro(ambiente);
    apoio::MontarTabela(outro, 2);
    documento.DefinirTituloResumido("todos-a");
    outro.DefinirTituloResumido("todos-b");
    documento.Exibir();
    outro.Exibir();
    auto* janela = Abertas()[0];
    janela->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(janela));
    QTimer::singleShot(0, [] { Perguntado(u"Direta"_s).accept(); });
    QTest::keyClick(janela->findChild<QWidget*>(u"paginas"_s), Qt::Key_P,
                    Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(servico->Chegada("todos-a").empty());
    EXPECT_FALSE(servico->Chegada("todos-b").empty());
    const auto ditas = apoio::Abertas<QMessageBox>();
    ASSERT_EQ(ditas.size(), 1U);
    EXPECT_THAT(ditas[0]->text().toStdString(), HasSubstr("todos-b (Direta)"));
    ditas[0]->close();
}

TEST_F(ImpressaoDaPrevia, WhatTheDialogShowsIsDoneAndWhatTheQueueCannotDoIsHidden) {
    documento.DefinirTituloResumido("escolhidas");
    documento.Exibir();
    Teclar("Ctrl+P");
    auto& dialogo = Perguntado(u"Laser"_s);
    EXPECT_TRUE(Oferece(dialogo, "copias", true));
    EXPECT_TRUE(Oferece(dialogo, "escala", true));
    EXPECT_EQ(dialogo.findChild<QComboBox*>(u"escala"_s)->currentIndex(), 0) << "100 %";
    for (const auto& [tecla, campo] : {std::pair{Qt::Key_M, u"escala"_s},
                                       {Qt::Key_C, u"copias"_s},
                                       {Qt::Key_G, u"paginas"_s},
                                       {Qt::Key_T, u"inversa"_s}}) {
        QTest::keyClick(dialogo.focusWidget(), tecla, Qt::AltModifier);
        EXPECT_EQ(dialogo.focusWidget()->objectName(), campo);
    }
    dialogo.findChild<QCheckBox*>(u"inversa"_s)->setChecked(false);
    Perguntado(u"Direta"_s);  // sends the bytes as they are
    EXPECT_TRUE(Oferece(dialogo, "copias", false));
    EXPECT_TRUE(Oferece(dialogo, "escala", false));
    EXPECT_TRUE(Oferece(dialogo, "lados", false));
    auto& paginas = *dialogo.findChild<QLineEdit*>(u"paginas"_s);
    auto& imprimir = *dialogo.findChild<QPushButton*>(u"imprimir"_s);
    paginas.setText(u"2,9"_s);
    EXPECT_FALSE(imprimir.isEnabled());
    paginas.setText(u"1-3"_s);
    dialogo.findChild<QComboBox*>(u"folhas"_s)->setCurrentIndex(1);
    dialogo.findChild<QCheckBox*>(u"inversa"_s)->setChecked(true);
    EXPECT_TRUE(imprimir.isEnabled());
    dialogo.accept();
    EXPECT_EQ(TextoDe(servico->Chegada("escolhidas")), "Página 3 de 4\nPágina 1 de 4\n");
}

TEST_F(ImpressaoDaPrevia, TheWindowPrintsAndTellsHowItEnded) {
    documento.DefinirTituloResumido("janela");
    documento.Exibir();
    const auto diz = [](const QString& texto) {
        return Esperar([&] { return Unica().statusBar()->currentMessage() == texto; });
    };
    Teclar("Ctrl+P");
    Perguntado(u"Direta"_s).accept();
    EXPECT_TRUE(diz(u"Enviado à impressora Direta."_s));
    EXPECT_FALSE(servico->Chegada("janela").empty());
    Teclar("Ctrl+P");
    Perguntado(u"Direta"_s).reject();
    EXPECT_TRUE(diz(u"Impressão cancelada."_s));
    Teclar("Ctrl+P");
    Perguntado(u"Parada"_s).accept();
    const auto caixa = [] { return Unica().findChild<QMessageBox*>(); };
    ASSERT_TRUE(Esperar([&] { return caixa() != nullptr; }));
    EXPECT_THAT(caixa()->text().toStdString(), AllOf(HasSubstr("erro 482"), HasSubstr("parada")));
}

TEST_F(ImpressaoDaPrevia, APreviewThatIsClosedAsksAndPrintsNothingMore) {
    documento.Exibir();
    const auto antes = servico->Trabalhos();
    Teclar("Ctrl+P");
    EXPECT_TRUE(FabricaVisualizadoresQt::Imprimindo());
    Teclar("Ctrl+W");  // while the printers are looked for
    EXPECT_TRUE(Esperar([] { return !FabricaVisualizadoresQt::Imprimindo(); }));
    EXPECT_TRUE(Dialogos().empty());
    documento.Exibir();
    Teclar("Ctrl+P");
    Perguntado(u"Direta"_s);
    documento.Ocultar();  // while the dialog stands open
    EXPECT_TRUE(Dialogos().empty());
    EXPECT_FALSE(FabricaVisualizadoresQt::Imprimindo());
    EXPECT_EQ(servico->Trabalhos(), antes);
}

TEST(ImpressaoComServicoMudo, NoWindowFreezesAndTheUserCanCancel) {
    const apoio::ServicoMudo mudo;
    FabricaVisualizadoresQt fabrica;
    DocumentoRelatorio documento({.visualizadores = &fabrica});
    apoio::MontarTabela(documento, 1);
    int batidas = 0;
    QTimer relogio;
    QObject::connect(&relogio, &QTimer::timeout, [&] {
        ++batidas;
        for (auto* aviso : apoio::Abertas<QProgressDialog>("avisoImpressao")) {
            QTest::mouseClick(aviso->findChild<QPushButton*>(), Qt::LeftButton);
        }
    });
    relogio.start(50);
    bool perguntar = false;
    const Erro erro = ErroDe([&] { documento.Imprimir(perguntar); });
    EXPECT_EQ(erro.Numero(), NumeroErro::Cancelado) << erro.Descricao();
    EXPECT_GT(batidas, 10);
}

}  // namespace
}  // namespace tarvo
