// SPDX-License-Identifier: MIT
#include <QAbstractScrollArea>
#include <QClipboard>
#include <QFileDialog>
#include <QMimeData>
#include <sstream>

#include "document/QuadroPagina.h"
#include "output/tables/TabelasCSV.h"
#include "tests/desktop/Previas.h"

namespace tarvo::apoio {
namespace {

using namespace Qt::StringLiterals;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

// Pages with labelled values above a table of three rows, the last one its total.
class TabelasDaPrevia : public Previas {
  protected:
    TabelasDaPrevia() {
        documento.Iniciar();
        documento.DefinirTituloResumido("Notas");
        documento.DefinirMargens(2, 2, 2, 2);
        CelulaRotulada(documento, Campo, 0, 0, 8, 0.6, "CNPJ", "=1 & <2>");
        {
            const Trecho tabela(documento, {.tipo = TipoElemento::Tabela});
            Linha(FuncaoDaLinha::Titulos, 1, {TituloDeColuna(), "Data"},
                  {TituloDeColuna(), "Valor"});
            documento.NovaPagina();
            Linha(FuncaoDaLinha::Dados, 1, {CelulaDe(Natureza::Data), "31/07/2003"},
                  {CelulaDe(Natureza::Quantia), "1.234,56"});
            Linha(FuncaoDaLinha::Total, 2, {CelulaDe(Natureza::Texto), "001"},
                  {CelulaDe(Natureza::Quantia), "922.337.203.685.477,58"});
        }
        documento.Exibir();
        Unica().resize(900, 700);
    }
    void Linha(FuncaoDaLinha funcao, double y, const std::pair<Elemento, const char*>& primeira,
               const std::pair<Elemento, const char*>& segunda) {
        const Trecho linha(documento, LinhaDe(funcao));
        Celula(documento, primeira.first, {}, 0, y, 4, 0.6, primeira.second);
        Celula(documento, segunda.first, {}, 4, y, 4, 0.6, segunda.second);
    }
    // Clicks on a place of the page that is shown (cm), at 100 %.
    static void Clicar(Qt::MouseButton botao, double x, double y) {
        QTest::mouseClick(Parte<QAbstractScrollArea>("paginas").viewport(), botao, {},
                          QPoint(12, 12) + (QPointF(x + 2, y + 2) * 96 / 2.54).toPoint());
    }
    static std::string Copiada() {
        Teclar("Ctrl+Shift+C");
        return QApplication::clipboard()->text().toStdString();
    }
    // What becomes of the answer to the dialog that a key opens.
    std::string Salva(const char* atalho, const char* nome, const QString& tipo = {}) {
        Teclar(atalho);
        auto* dialogo = Unica().findChild<QFileDialog*>();
        if (!tipo.isEmpty()) {
            dialogo->selectNameFilter(tipo);
            Q_EMIT dialogo->filterSelected(tipo);
        }
        dialogo->selectFile(QString::fromStdString((pasta / nome).string()));
        QMetaObject::invokeMethod(dialogo, "accept");
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const bool comTipo = std::string_view(nome).find('.') != std::string_view::npos;
        return BytesDe(pasta / (nome + std::string(comTipo ? "" : ".csv")));
    }
    DocumentoRelatorio documento{ambiente};
};

constexpr auto Tabela = "Data\tValor\r\n31/07/2003\t1234,56\r\n001\t922337203685477,58\r\n";
constexpr auto Campos = "Campo\tValor\r\nCNPJ\t'=1 & <2>\r\n";

TEST_F(TabelasDaPrevia, TheTableThatIsMeantIsCopiedForSpreadsheetsAndForAnyProgram) {
    Teclar("Ctrl+0");
    Clicar(Qt::LeftButton, 12, 0.3);  // beside the fields, which are not the page's only table
    EXPECT_EQ(Copiada(), Campos);
    EXPECT_THAT(QApplication::clipboard()->mimeData()->html().toStdString(),
                HasSubstr(">=1 &amp; &lt;2&gt;</td>"));
    Teclar("Ctrl+PgDown");  // where nothing has been clicked
    EXPECT_EQ(Copiada(), Tabela);
    EXPECT_THAT(
        QApplication::clipboard()->mimeData()->html().toStdString(),
        AllOf(HasSubstr("<th>Data</th><th>Valor</th>"),
              HasSubstr(R"(sdval="37833.00" sdnum="1046;0;DD/MM/AAAA")"),
              HasSubstr(R"(x:num="1234.56" style="mso-number-format:'#,##0.00'">1.234,56</td>)"),
              // Neither a code nor what numbers cannot hold is one.
              HasSubstr(R"(sdnum="1033;0;@" style="mso-number-format:'\@'">001</th>)"),
              HasSubstr(R"('\@'">922.337.203.685.477,58</th>)")));
    Teclar("Ctrl+PgUp");
    Clicar(Qt::RightButton, 5, 1.3);
    EXPECT_EQ(Copiada(), Tabela);
    Teclar("Ctrl+A");
    Clicar(Qt::RightButton, 1, 0.3);  // on what is selected, which stays so
    Teclar("Ctrl+C");
    EXPECT_THAT(QApplication::clipboard()->text().toStdString(), HasSubstr("Data\tValor"));
    EXPECT_EQ(Parte<QAbstractScrollArea>("paginas").actions().size(), 3) << "in the mouse's menu";
}

TEST_F(TabelasDaPrevia, AllTablesOrTheOneThatIsMeantAreSavedAsTheUserChooses) {
    std::ostringstream esperado;
    EscreverCSV(TabelasDoDocumento(documento.Registrado()), esperado);
    EXPECT_EQ(Salva("Ctrl+E", "todas", u"Valores separados por ponto e vírgula (*.csv)"_s),
              esperado.str());
    EXPECT_THAT(Salva("Ctrl+E", "todas.xlsx"), StartsWith("PK"));
    Teclar("Ctrl+PgDown");
    EXPECT_THAT(Salva("Ctrl+Shift+E", "uma.csv"), StartsWith("\uFEFFData;Valor\r\n"));
}

}  // namespace
}  // namespace tarvo::apoio
