#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

#include "tests/desktop/Previas.h"
#include "tests/impressao/ServicoDeImpressao.h"

namespace tarvo {
namespace {

using apoio::ErroDe;
using apoio::MontarTabela;
using testing::HasSubstr;
using namespace Qt::StringLiterals;

class ImpressaoDaPrevia : public apoio::Previas {
  protected:
    static void SetUpTestSuite() { servico = std::make_unique<apoio::ServicoDeImpressao>(); }
    static void TearDownTestSuite() { servico.reset(); }
    ImpressaoDaPrevia() {
        MontarTabela(documento, 4);
        documento.DefinirTituloResumido("previa");
    }
    // Waits for the print dialog and answers it.
    static void Responder(const QString& impressora, bool aceitar) {
        ASSERT_TRUE(Esperar([] { return Dialogo() != nullptr; }));
        auto* dialogo = Dialogo();
        dialogo->printer()->setPrinterName(impressora);
        for (auto* lista : dialogo->findChildren<QComboBox*>()) {
            if (const int linha = lista->findText(impressora); linha >= 0) {
                lista->setCurrentIndex(linha);
            }
        }
        const auto papel = aceitar ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel;
        for (auto* botoes : dialogo->findChildren<QDialogButtonBox*>()) {
            if (auto* botao = botoes->button(papel)) {
                botao->click();
                return;
            }
        }
        aceitar ? dialogo->accept() : dialogo->reject();
    }
    static QPrintDialog* Dialogo() {
        for (auto* janela : QApplication::topLevelWidgets()) {
            auto* dialogo = qobject_cast<QPrintDialog*>(janela);
            if (dialogo != nullptr && dialogo->isVisible()) {
                return dialogo;
            }
        }
        return nullptr;
    }

    inline static std::unique_ptr<apoio::ServicoDeImpressao> servico;
    DocumentoRelatorio documento{ambiente};
};

TEST_F(ImpressaoDaPrevia, PrintsAtOnceOnTheUsersPrinter) {
    setenv("LPDEST", "Laser", 1);
    bool perguntar = false;
    documento.Imprimir(perguntar);
    unsetenv("LPDEST");
    const auto chegada = servico->Chegada("previa");
    EXPECT_THAT(apoio::Saida("pdfinfo '" + chegada.string() + "'"),
                HasSubstr("Pages:           4"));
    EXPECT_TRUE(Abertas().empty());
}

TEST_F(ImpressaoDaPrevia, WithoutAPrinterTheErrorReachesTheCaller) {
    bool perguntar = false;
    const Erro erro = ErroDe([&] { documento.Imprimir(perguntar); });
    EXPECT_EQ(erro.Numero(), NumeroErro::ErroImpressora);
    EXPECT_THAT(erro.Descricao(), HasSubstr("Não há impressora padrão"));
}

TEST_F(ImpressaoDaPrevia, AsksFirstWhenTold) {
    documento.DefinirTituloResumido("perguntada");
    QTimer::singleShot(0, [] { Responder(u"Direta"_s, true); });
    bool perguntar = true;
    documento.Imprimir(perguntar);
    EXPECT_FALSE(servico->Chegada("perguntada").empty());

    const auto antes = servico->Trabalhos();
    QTimer::singleShot(0, [] { Responder(u"Direta"_s, false); });
    const Erro erro = ErroDe([&] { documento.Imprimir(perguntar); });
    EXPECT_EQ(erro.Numero(), NumeroErro::Cancelado);
    EXPECT_EQ(servico->Trabalhos(), antes);
}

TEST_F(ImpressaoDaPrevia, TheWindowPrintsAndTellsHowItEnded) {
    documento.DefinirTituloResumido("janela");
    documento.Exibir();
    Teclar("Ctrl+P");
    Responder(u"Direta"_s, true);
    auto* situacao = Unica().statusBar();
    EXPECT_TRUE(Esperar([&] { return situacao->currentMessage() == u"Enviado à impressora."_s; }));
    EXPECT_FALSE(servico->Chegada("janela").empty());
    Teclar("Ctrl+P");
    Responder(u"Direta"_s, false);
    EXPECT_TRUE(Esperar([&] { return situacao->currentMessage() == u"Impressão cancelada."_s; }));
    Teclar("Ctrl+P");
    Responder(u"Parada"_s, true);
    const auto caixa = [] { return Unica().findChild<QMessageBox*>(); };
    ASSERT_TRUE(Esperar([&] { return caixa() != nullptr; }));
    EXPECT_THAT(caixa()->text().toStdString(), HasSubstr("erro 482"));
    EXPECT_THAT(caixa()->text().toStdString(), HasSubstr("parada"));
}

}  // namespace
}  // namespace tarvo
