// SPDX-License-Identifier: MIT
#include "host/windows/JanelaPrincipal.h"

#include <QClipboard>
#include <QDialog>
#include <QDropEvent>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTableView>
#include <QTableWidget>
#include <QTimer>
#include <QToolButton>
#include <QUrl>
#include <fstream>

#include "host/windows/AmbienteComJanelas.h"
#include "host/windows/ModeloDeclaracoes.h"
#include "tests/databases/mdb/EscritorMdb.h"
#include "tests/desktop/Previas.h"

namespace tarvo::host {
namespace {

using apoio::BancoDeTeste;
using namespace Qt::StringLiterals;

constexpr const char* Script = R"sql(
insert into tblContribuinte (IE, RazãoSocial) values
    ('1', 'Padaria São João'), ('2', 'Ótica Bela Vista'), ('3', 'Sem Declaração');
insert into tblDRQ (NroDRQ, Ref1, IE) values
    (9, '2003-01-01', '1'), (10, '2001-02-01', '1'), (11, '2003-03-01', '2'), (12, '2003-04-01', null);
)sql";

class JanelaPrincipalTeste : public apoio::Previas {
  protected:
    JanelaPrincipalTeste() {
        setenv("XDG_CONFIG_HOME", pasta.Caminho().c_str(), 1);
        pecas = std::make_unique<AmbienteComJanelas>(std::nullopt);
        janela = std::make_unique<JanelaPrincipal>(*pecas);
        janela->show();
        janela->Abrir(banco.Arquivo());
        lista = janela->findChild<QTableView*>(u"declaracoes"_s);
        busca = janela->findChild<QLineEdit*>(u"campoBusca"_s);
    }
    // Of the listed declarations, each with a semicolon behind it.
    [[nodiscard]] std::string Numeros() const {
        QString numeros;
        for (int i = 0; i < lista->model()->rowCount(); ++i) {
            numeros += lista->model()->index(i, ModeloDeclaracoes::Numero).data().toString() + u';';
        }
        return numeros.toStdString();
    }
    // Answers the selection dialog that the action opens.
    static void NoDialogo(const std::function<void(QDialog&, QListWidget&)>& usuario) {
        QTimer::singleShot(0, [usuario] {
            auto* dialogo = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialogo, nullptr);
            usuario(*dialogo, *dialogo->findChild<QListWidget*>());
        });
    }

    BancoDeTeste banco{Script};
    std::unique_ptr<AmbienteComJanelas> pecas;
    std::unique_ptr<JanelaPrincipal> janela;
    QTableView* lista = nullptr;
    QLineEdit* busca = nullptr;
};

TEST_F(JanelaPrincipalTeste, ListsSearchesAndSorts) {
    EXPECT_EQ(Numeros(), "12;11;10;9;;");
    lista->sortByColumn(ModeloDeclaracoes::Numero, Qt::AscendingOrder);
    EXPECT_EQ(Numeros(), ";9;10;11;12;");
    lista->sortByColumn(ModeloDeclaracoes::Referencia, Qt::DescendingOrder);
    EXPECT_EQ(Numeros(), "12;11;9;10;;");
    QTest::keyClicks(busca, u"sao joao 2001"_s);
    EXPECT_EQ(Numeros(), "10;");
    EXPECT_EQ(janela->findChild<QLabel*>(u"situacao"_s)->text(), u"1 de 4 declarações"_s);
    busca->setText(u"nada"_s);
    EXPECT_EQ(Numeros(), "");
    busca->clear();
    EXPECT_EQ(Numeros(), "12;11;9;10;;");
}

TEST_F(JanelaPrincipalTeste, SaysOfWhenACopyIsAndReadsItAgainOnlyWhenItHasChanged) {
    mdb::EscritorMdb escritor;
    const auto arquivo = pasta / "declaracoes.mdb";
    const auto gravar = [&] { std::ofstream(arquivo, std::ios::binary) << escritor.Bytes(); };
    escritor.Tabela("tblContribuinte", {{"IE", mdb::TipoMdb::Texto},
                                        {"RazãoSocial", mdb::TipoMdb::Texto},
                                        {"CNPJ", mdb::TipoMdb::Texto}});
    escritor.Linha({"1", "Padaria São João", {}});
    escritor.Tabela("tblDRQ", {{"NroDRQ", mdb::TipoMdb::Longo},
                               {"Ref1", mdb::TipoMdb::Data},
                               {"RegTrib", mdb::TipoMdb::Texto},
                               {"Tipo", mdb::TipoMdb::Longo},
                               {"Consistente", mdb::TipoMdb::Booleano}});
    escritor.Linha({std::int64_t{9}, 37803.0, "01", std::int64_t{1}, true});
    gravar();
    janela->Abrir(arquivo);
    EXPECT_EQ(Numeros(), "9;");
    const auto dados = janela->findChild<QLabel*>(u"dados"_s)->text();
    EXPECT_TRUE(QRegularExpression(u"^dados de \\d\\d:\\d\\d, F5 relê$"_s).match(dados).hasMatch())
        << dados.toStdString();
    janela->Reler();
    EXPECT_EQ(janela->statusBar()->currentMessage(), u"O arquivo não mudou."_s);
    escritor.Linha({std::int64_t{10}, 37834.0, "01", std::int64_t{1}, true});
    gravar();
    std::filesystem::last_write_time(
        arquivo, std::filesystem::last_write_time(arquivo) + std::chrono::seconds(1));
    janela->Reler();
    EXPECT_EQ(Numeros(), "9;10;");
}

TEST_F(JanelaPrincipalTeste, EnterOpensTheDialogOfTheDeclarationAndPreviewsItsReports) {
    QTest::keyClicks(busca, u"joao 2001"_s);
    NoDialogo([](QDialog&, QListWidget& entradas) {
        EXPECT_EQ(entradas.count(), 17);
        entradas.item(0)->setSelected(true);
        QTest::keyClick(&entradas, Qt::Key_Return);
    });
    QTest::keyClick(busca, Qt::Key_Return);
    EXPECT_EQ(Unica().windowTitle(), u"Relatório de Cadastro do Contribuinte"_s);
    // Opening another database closes the previews of this one.
    janela->Abrir(banco.Arquivo());
    EXPECT_TRUE(Abertas().empty());
}

TEST_F(JanelaPrincipalTeste, WhatThePagesDoNotShowIsCountedAndListedHereAndInItsPreview) {
    banco.Executar(
        "insert into tblPagamento (NroDRQ, Data, Valor) select NroDRQ, '2001-12-09', 100 from "
        "tblDRQ");
    auto& avisos = *janela->findChild<QPushButton*>(u"avisos"_s);
    const auto produzir = [&](int entrada) {
        NoDialogo([&](QDialog&, QListWidget& entradas) {
            entradas.clearSelection();
            entradas.item(entrada)->setSelected(true);
            QTest::keyClick(&entradas, Qt::Key_Return);
        });
        QTest::keyClick(busca, Qt::Key_Return);
    };
    const auto doPagamento = [&] {
        qsizetype quantos = 0;
        NoDialogo([&](QDialog& dialogo, QListWidget& listados) {
            quantos =
                listados.findItems(u"relatório 17, tblPagamento, 1 linha: "_s, Qt::MatchStartsWith)
                    .size();
            dialogo.reject();
        });
        avisos.click();
        return quantos;
    };
    QTest::keyClicks(busca, u"joao 2001"_s);
    produzir(16);
    EXPECT_TRUE(avisos.isVisibleTo(janela.get()));
    EXPECT_TRUE(avisos.text().startsWith(u"DRQ 10: "_s)) << avisos.text().toStdString();
    EXPECT_EQ(doPagamento(), 1);
    auto& daPrevia = Parte<QToolButton>("situacaoAvisos");
    EXPECT_TRUE(daPrevia.text().contains(u" aviso"_s)) << daPrevia.text().toStdString();
    daPrevia.click();
    auto& listados = Parte<QTableWidget>("avisosDaPrevia");
    EXPECT_TRUE(listados.isVisible());
    EXPECT_EQ(
        listados.findItems(u"relatório 17, tblPagamento, 1 linha: "_s, Qt::MatchStartsWith).size(),
        1);
    // Of what was not produced nothing is said.
    produzir(0);
    EXPECT_EQ(doPagamento(), 0);
    EXPECT_EQ(Abertas().size(), 1U);
    janela->close();
    EXPECT_TRUE(Abertas().empty());
}

TEST_F(JanelaPrincipalTeste, WhatIsFoundIsShownAndTheDialogSaysWhoseItIs) {
    banco.Executar(
        "with recursive n(i) as (select 1 union all select i + 1 from n where i < 300)"
        " insert into tblDRQ (NroDRQ, Ref1, IE) select 1000 + i, '2003-05-01', '2' from n");
    janela->Abrir(banco.Arquivo());
    lista->selectRow(lista->model()->rowCount() - 1);
    lista->scrollToBottom();
    QTest::keyClicks(busca, u"otica"_s);
    EXPECT_TRUE(
        lista->viewport()->rect().contains(lista->visualRect(lista->currentIndex()).center()));
    EXPECT_EQ(lista->currentIndex().row(), 0);
    const auto numero = lista->model()->index(0, ModeloDeclaracoes::Numero).data().toString();
    bool perguntado = false;
    NoDialogo([&](QDialog& dialogo, QListWidget&) {
        perguntado = true;
        EXPECT_TRUE(dialogo.findChild<QLabel*>(u"declaracao"_s)
                        ->text()
                        .startsWith(u"Ótica Bela Vista, DRQ "_s + numero + u", "_s));
        dialogo.reject();
    });
    const auto lugar = lista->visualRect(lista->currentIndex()).center();
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, lugar);
    QTest::mouseDClick(lista->viewport(), Qt::LeftButton, {}, lugar);
    EXPECT_TRUE(perguntado);
}

TEST_F(JanelaPrincipalTeste, ARunGoesOnToTheNextDeclarationWithTheSameReports) {
    QTest::keyClicks(busca, u"joao"_s);
    lista->sortByColumn(ModeloDeclaracoes::Numero, Qt::AscendingOrder);
    lista->selectRow(0);
    NoDialogo([](QDialog&, QListWidget& entradas) {
        entradas.item(0)->setSelected(true);
        entradas.item(15)->setSelected(true);
        QTest::keyClick(&entradas, Qt::Key_Return);
    });
    QTest::keyClick(busca, Qt::Key_Return);
    const auto previas = Abertas();
    ASSERT_EQ(previas.size(), 2U);
    previas[0]->setGeometry(50, 60, 610, 520);
    const auto pedir = [&](Qt::Key tecla, Qt::KeyboardModifiers com = Qt::NoModifier) {
        previas[0]->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(previas[0]));
        QTest::keyClick(previas[0]->findChild<QWidget*>(u"paginas"_s), tecla, com);
    };
    // Number 10 is of 2001 and has no entry 15: its window goes, the other one stays in its place.
    pedir(Qt::Key_PageDown, Qt::AltModifier);
    ASSERT_EQ(Abertas(), std::vector{previas[0]});
    EXPECT_EQ(previas[0]->geometry(), QRect(50, 60, 610, 520));
    EXPECT_EQ(lista->currentIndex().row(), 1);
    pedir(Qt::Key_PageDown, Qt::AltModifier);
    EXPECT_THAT(previas[0]->statusBar()->currentMessage().toStdString(),
                testing::HasSubstr("última"));
    pedir(Qt::Key_PageUp, Qt::AltModifier);
    EXPECT_EQ(Abertas().size(), 2U);
    // F5 shows what the database has by now.
    const auto copiar = [&] {
        pedir(Qt::Key_A, Qt::ControlModifier);
        pedir(Qt::Key_C, Qt::ControlModifier);
        return QApplication::clipboard()->text().toStdString();
    };
    banco.Executar("update tblContribuinte set RazãoSocial = 'Padaria Nova' where IE = '1'");
    EXPECT_THAT(copiar(), testing::HasSubstr("São João"));
    pedir(Qt::Key_F5);
    EXPECT_THAT(copiar(), testing::HasSubstr("Padaria Nova"));
    EXPECT_EQ(Abertas().size(), 2U);
}

TEST_F(JanelaPrincipalTeste, TheReferenceMonthIsAskedForWithTheDeclarationsOwnAsTheProposal) {
    const auto visualizarResumo = [&](bool aceitar) {
        QTest::keyClicks(busca, u"joao 2001"_s);
        NoDialogo([aceitar](QDialog&, QListWidget& entradas) {
            entradas.item(1)->setSelected(true);
            QTimer::singleShot(0, [aceitar] {
                // The selection dialog goes; the question comes while the report is built.
                QTimer::singleShot(0, [aceitar] {
                    auto* pergunta = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
                    ASSERT_NE(pergunta, nullptr);
                    EXPECT_EQ(pergunta->textValue(), u"02/2001"_s);
                    aceitar ? pergunta->accept() : pergunta->reject();
                });
            });
            QTest::keyClick(&entradas, Qt::Key_Return);
        });
        QTest::keyClick(busca, Qt::Key_Return);
        busca->clear();
    };
    visualizarResumo(false);
    EXPECT_TRUE(Abertas().empty());
    EXPECT_TRUE(janela->statusBar()->currentMessage().contains(u"mês de referência"_s));
    visualizarResumo(true);
    EXPECT_EQ(Abertas().size(), 1U);
    EXPECT_EQ(ini.Ler("Tarvo", "pRef", "RefAtual", ""), "02/2001");
}

TEST_F(JanelaPrincipalTeste, AReportThatFailsIsNamedWithWhatToDo) {
    banco.Executar("drop table tblPagamento");
    QTest::keyClicks(busca, u"joao 2001"_s);
    NoDialogo([](QDialog&, QListWidget& entradas) {
        entradas.item(entradas.count() - 1)->setSelected(true);
        QTest::keyClick(&entradas, Qt::Key_Return);
    });
    QTest::keyClick(busca, Qt::Key_Return);
    auto* caixa = janela->findChild<QMessageBox*>();
    ASSERT_NE(caixa, nullptr);
    EXPECT_THAT(caixa->text().toStdString(),
                testing::AllOf(testing::StartsWith("erro 3078: 17 - Pagamentos: "),
                               testing::HasSubstr("O banco não tem todas as tabelas")));
    caixa->close();
}

TEST_F(JanelaPrincipalTeste, AnErrorIsToldWithWhatToDoAndLeavesTheOpenDatabase) {
    janela->Abrir("/nenhum/banco.tarvo");
    auto* caixa = janela->findChild<QMessageBox*>();
    ASSERT_NE(caixa, nullptr);
    EXPECT_THAT(caixa->text().toStdString(),
                testing::AllOf(testing::StartsWith("erro 3024: "),
                               testing::HasSubstr("/nenhum/banco.tarvo"),
                               testing::HasSubstr("Confira o caminho")));
    caixa->close();
    EXPECT_EQ(Numeros(), "12;11;10;9;;");
    // What passes can be tried again.
    janela->Abrir("postgresql://127.0.0.1:1/drq");
    const auto ditas = [] { return apoio::Abertas<QMessageBox>(); };
    ASSERT_EQ(ditas().size(), 1U);
    const QPointer<QMessageBox> primeira = ditas().front();
    QTest::keyClick(primeira, Qt::Key_Return);
    EXPECT_TRUE(Esperar([&] { return primeira.isNull() && ditas().size() == 1; }));
    ditas().front()->reject();
    EXPECT_EQ(Numeros(), "12;11;10;9;;");
}

TEST_F(JanelaPrincipalTeste, OpensAgainWhereItWasClosed) {
    QTest::keyClicks(busca, u"joao"_s);
    lista->selectRow(1);
    const auto escolhida = lista->currentIndex().siblingAtColumn(ModeloDeclaracoes::Numero).data();
    janela->close();
    janela = std::make_unique<JanelaPrincipal>(*pecas);
    EXPECT_TRUE(janela->findChild<QLabel*>(u"vazio"_s)->text().contains(u"Nenhum banco"_s));
    janela->show();
    janela->Reabrir();
    lista = janela->findChild<QTableView*>(u"declaracoes"_s);
    EXPECT_EQ(janela->findChild<QLineEdit*>(u"campoBusca"_s)->text(), u"joao"_s);
    EXPECT_EQ(lista->currentIndex().siblingAtColumn(ModeloDeclaracoes::Numero).data(), escolhida);
    // What was dropped on it is opened.
    const BancoDeTeste outro;
    QMimeData dados;
    dados.setUrls({QUrl::fromLocalFile(QString::fromStdString(outro.Arquivo().string()))});
    QDragEnterEvent sobre({50, 50}, Qt::CopyAction, &dados, Qt::LeftButton, {});
    QApplication::sendEvent(janela.get(), &sobre);
    EXPECT_TRUE(sobre.isAccepted());
    QDropEvent solto({50, 50}, Qt::CopyAction, &dados, Qt::LeftButton, {});
    QApplication::sendEvent(janela.get(), &solto);
    EXPECT_EQ(Numeros(), "");
    EXPECT_TRUE(janela->findChild<QLabel*>(u"vazio"_s)->isVisible());
}

TEST_F(JanelaPrincipalTeste, OffersTheDatabasesOpenedLast) {
    const BancoDeTeste outro;
    janela->Abrir(outro.Arquivo());
    EXPECT_EQ(Numeros(), "");
    auto* recentes = janela->findChild<QMenu*>(u"recentes"_s);
    Q_EMIT recentes->aboutToShow();
    ASSERT_EQ(recentes->actions().size(), 2);
    EXPECT_EQ(recentes->actions()[0]->text().toStdString(), outro.Arquivo().string());
    recentes->actions()[1]->trigger();
    EXPECT_EQ(Numeros(), "12;11;10;9;;");
}

}  // namespace
}  // namespace tarvo::host
