#include <QComboBox>
#include <QMessageBox>
#include <QPrintDialog>
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
    // Waits for the print dialog and answers it.
    static void Responder(const QString& impressora, bool aceitar) {
        const auto dialogos = [] { return apoio::Abertas<QPrintDialog>(); };
        ASSERT_TRUE(Esperar([&] { return !dialogos().empty(); }));
        auto* dialogo = dialogos().front();
        for (auto* lista : dialogo->findChildren<QComboBox*>()) {
            if (const int linha = lista->findText(impressora); linha >= 0) {
                lista->setCurrentIndex(linha);
            }
        }
        aceitar ? dialogo->accept() : dialogo->reject();
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
    QTimer::singleShot(0, [] { Responder(u"Direta"_s, true); });
    Imprimir(true);
    EXPECT_FALSE(servico->Chegada("perguntada").empty());

    const auto antes = servico->Trabalhos();
    QTimer::singleShot(0, [] { Responder(u"Direta"_s, false); });
    EXPECT_EQ(ErroDe([&] { Imprimir(true); }).Numero(), NumeroErro::Cancelado);
    EXPECT_EQ(servico->Trabalhos(), antes);
}

TEST_F(ImpressaoDaPrevia, TheWindowPrintsAndTellsHowItEnded) {
    documento.DefinirTituloResumido("janela");
    documento.Exibir();
    const auto diz = [](const QString& texto) {
        return Esperar([&] { return Unica().statusBar()->currentMessage() == texto; });
    };
    Teclar("Ctrl+P");
    Responder(u"Direta"_s, true);
    EXPECT_TRUE(diz(u"Enviado à impressora."_s));
    EXPECT_FALSE(servico->Chegada("janela").empty());
    Teclar("Ctrl+P");
    Responder(u"Direta"_s, false);
    EXPECT_TRUE(diz(u"Impressão cancelada."_s));
    Teclar("Ctrl+P");
    Responder(u"Parada"_s, true);
    const auto caixa = [] { return Unica().findChild<QMessageBox*>(); };
    ASSERT_TRUE(Esperar([&] { return caixa() != nullptr; }));
    EXPECT_THAT(caixa()->text().toStdString(), AllOf(HasSubstr("erro 482"), HasSubstr("parada")));
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
