#include "host/windows/JanelaPrincipal.h"

#include <QApplication>
#include <QDate>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "databases/AbrirBanco.h"
#include "desktop/ApoioQt.h"
#include "document/Imagens.h"
#include "host/commands/Declaracoes.h"
#include "host/windows/AmbienteComJanelas.h"
#include "host/windows/Recentes.h"

namespace tarvo::host {

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view Secao = "JanelaPrincipal";
constexpr int LarguraMaxima = 340;  // of a column; the tool tip shows what is cut

}  // namespace

JanelaPrincipal::JanelaPrincipal(AmbienteComJanelas& ambiente)
    : ambiente_(ambiente), selecao_(this), filtradas_(modelo_) {
    setObjectName(u"janelaPrincipal"_s);
    setWindowTitle(u"Relatórios Tarvo"_s);
    setWindowIcon(IconeDe(&frmFiguras::imgIconeR));
    resize(980, 560);
    CriarMenus();
    CriarLista();
    situacao_ = new QLabel(u"Nenhum banco aberto. Use Arquivo, Abrir banco."_s, this);
    situacao_->setObjectName(u"situacao"_s);
    statusBar()->addWidget(situacao_, 1);
    LerGeometria();
}

JanelaPrincipal::~JanelaPrincipal() = default;

void JanelaPrincipal::CriarMenus() {
    auto* arquivo = menuBar()->addMenu(u"&Arquivo"_s);
    arquivo->addAction(u"&Abrir banco…"_s, QKeySequence(Qt::CTRL | Qt::Key_O), this,
                       [this] { EscolherArquivo(); });
    auto* recentes = arquivo->addMenu(u"&Recentes"_s);
    recentes->setObjectName(u"recentes"_s);
    connect(recentes, &QMenu::aboutToShow, this, [this, recentes] { MostrarRecentes(*recentes); });
    arquivo->addSeparator();
    arquivo->addAction(u"&Sair"_s, QKeySequence(Qt::CTRL | Qt::Key_Q), this,
                       [] { QApplication::closeAllWindows(); });
    auto* declaracao = menuBar()->addMenu(u"&Declaração"_s);
    declaracao->addAction(u"&Relatórios…"_s, QKeySequence(Qt::CTRL | Qt::Key_R), this,
                          [this] { AbrirDeclaracao(lista_->currentIndex()); });
    declaracao->addAction(u"Mês de referência &atual…"_s, this, [this] { DefinirRefAtual(); });
    declaracao->addAction(u"&Localizar"_s, QKeySequence(Qt::CTRL | Qt::Key_F), this, [this] {
        campoBusca_->setFocus();
        campoBusca_->selectAll();
    });
}

void JanelaPrincipal::CriarLista() {
    auto* centro = new QWidget(this);
    campoBusca_ = new QLineEdit(centro);
    campoBusca_->setObjectName(u"campoBusca"_s);
    campoBusca_->setPlaceholderText(u"Localizar por nome, inscrição, CNPJ, número ou referência"_s);
    campoBusca_->setAccessibleName(u"Localizar contribuinte ou declaração"_s);
    campoBusca_->setClearButtonEnabled(true);
    campoBusca_->installEventFilter(this);
    connect(campoBusca_, &QLineEdit::textChanged, this, [this](const QString& texto) {
        filtradas_.Procurar(texto);
        lista_->selectRow(0);
        DizerQuantas();
    });
    lista_ = new QTableView(centro);
    lista_->setObjectName(u"declaracoes"_s);
    lista_->setAccessibleName(u"Contribuintes e declarações"_s);
    lista_->setModel(&filtradas_);
    lista_->setSortingEnabled(true);
    lista_->sortByColumn(ModeloDeclaracoes::RazaoSocial, Qt::AscendingOrder);
    lista_->setSelectionBehavior(QAbstractItemView::SelectRows);
    lista_->setSelectionMode(QAbstractItemView::SingleSelection);
    lista_->setTabKeyNavigation(false);
    lista_->setAlternatingRowColors(true);
    lista_->setShowGrid(false);
    lista_->verticalHeader()->hide();
    lista_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    lista_->horizontalHeader()->setStretchLastSection(true);
    lista_->horizontalHeader()->setHighlightSections(false);
    lista_->installEventFilter(this);
    connect(lista_, &QTableView::doubleClicked, this,
            [this](const QModelIndex& indice) { AbrirDeclaracao(indice); });
    auto* colunas = new QVBoxLayout(centro);
    colunas->addWidget(campoBusca_);
    colunas->addWidget(lista_, 1);
    setCentralWidget(centro);
}

bool JanelaPrincipal::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress) {
        const int tecla = static_cast<QKeyEvent*>(evento)->key();
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            AbrirDeclaracao(lista_->currentIndex());
            return true;
        }
        if (objeto == campoBusca_ && (tecla == Qt::Key_Down || tecla == Qt::Key_Up)) {
            QApplication::sendEvent(lista_, evento);
            return true;
        }
    }
    return QMainWindow::eventFilter(objeto, evento);
}

void JanelaPrincipal::EscolherArquivo() {
    const auto arquivo = QFileDialog::getOpenFileName(
        this, u"Abrir banco de declarações"_s, {},
        u"Bancos de declarações (*.tarvo *.db *.sqlite);;Todos os arquivos (*)"_s);
    if (!arquivo.isEmpty()) {
        Abrir(arquivo.toStdString());
    }
}

void JanelaPrincipal::MostrarRecentes(QMenu& menu) {
    menu.clear();
    for (const auto& recente : LerRecentes(ambiente_.Preferencias())) {
        menu.addAction(QString(recente).replace(u'&', u"&&"_s), this,
                       [this, recente] { Abrir(recente.toStdString()); });
    }
    if (menu.isEmpty()) {
        menu.addAction(u"Nenhum"_s)->setEnabled(false);
    }
}

void JanelaPrincipal::Abrir(const std::filesystem::path& arquivo) {
    if (ocupada_) {
        return;
    }
    try {
        auto banco = AbrirBanco(arquivo);
        const auto fim = ambiente_.ConcluirAndamentoNoFim();
        banco->Acompanhar(ambiente_.DosRelatorios().andamento);
        modelo_.Ler(*banco);
        relatorios_.reset();
        banco_ = std::move(banco);
        relatorios_ = std::make_unique<Relatorios>(ambiente_.DosRelatorios(), selecao_);
    } catch (const Erro& erro) {
        return DizerErro(erro);
    }
    const QFileInfo nome(ParaQt(arquivo.string()));
    setWindowTitle(nome.fileName() + u" — Relatórios Tarvo"_s);
    AcrescentarRecente(ambiente_.Preferencias(), nome.absoluteFilePath());
    lista_->resizeColumnsToContents();
    for (int coluna = 0; coluna < ModeloDeclaracoes::Colunas; ++coluna) {
        lista_->setColumnWidth(coluna, std::min(lista_->columnWidth(coluna), LarguraMaxima));
    }
    campoBusca_->clear();
    lista_->selectRow(0);
    lista_->setFocus();
    DizerQuantas();
}

void JanelaPrincipal::AbrirDeclaracao(const QModelIndex& indice) {
    if (!indice.isValid() || ocupada_) {
        return;
    }
    const auto& linha = filtradas_.Em(indice);
    if (!linha.NroDRQ) {
        statusBar()->showMessage(u"Este contribuinte não tem declarações."_s, 5000);
        return;
    }
    const std::int32_t numero = *linha.NroDRQ;
    ocupada_ = true;
    try {
        const auto fim = ambiente_.ConcluirAndamentoNoFim();
        const auto IE = linha.IE.empty() ? PerguntarContribuinte() : linha.IE;
        if (!IE.empty()) {
            relatorios_->Executar(*banco_, IE, numero, 0);
        }
    } catch (const Erro& erro) {
        DizerErro(erro);
    }
    ocupada_ = false;
}

std::string JanelaPrincipal::PerguntarContribuinte() {
    QStringList contribuintes;
    for (const auto& contribuinte : LerContribuintes(*banco_)) {
        contribuintes << ParaQt(contribuinte.IE) + u"  "_s + ParaQt(contribuinte.razaoSocial);
    }
    const auto escolhido = QInputDialog::getItem(
        this, u"Contribuinte"_s, u"O banco não diz de quem é esta declaração. Contribuinte:"_s,
        contribuintes, 0, false);
    return escolhido.section(u"  "_s, 0, 0).toStdString();
}

void JanelaPrincipal::DefinirRefAtual() {
    try {
        auto& preferencias = ambiente_.Preferencias();
        auto texto = ParaQt(preferencias.Ler("Tarvo", "pRef", "RefAtual", ""));
        bool aceito = true;
        do {
            texto = QInputDialog::getText(this, u"Mês de referência atual"_s,
                                          u"Mês e ano (MM/AAAA) que os resumos dos CFOPs usam:"_s,
                                          QLineEdit::Normal, texto, &aceito)
                        .trimmed();
        } while (aceito && !QDate::fromString(texto, u"MM/yyyy"_s).isValid());
        if (aceito) {
            preferencias.Gravar("Tarvo", "pRef", "RefAtual", texto.toStdString());
        }
    } catch (const Erro& erro) {
        DizerErro(erro);
    }
}

void JanelaPrincipal::DizerQuantas() {
    const int mostradas = filtradas_.rowCount();
    const int todas = modelo_.rowCount();
    situacao_->setText(mostradas == todas ? u"%L1 linhas"_s.arg(todas)
                                          : u"%L1 de %L2 linhas"_s.arg(mostradas).arg(todas));
}

void JanelaPrincipal::DizerErro(const Erro& erro) {
    if (erro.Numero() == NumeroErro::Cancelado) {
        statusBar()->showMessage(ParaQt(erro.Descricao()), 5000);
        return;
    }
    auto* caixa = new QMessageBox(QMessageBox::Warning, u"Relatórios Tarvo"_s, TextoDoErro(erro),
                                  QMessageBox::Ok, this);
    caixa->setAttribute(Qt::WA_DeleteOnClose);
    caixa->open();
}

// Losing the window's place is no error.
void JanelaPrincipal::LerGeometria() {
    try {
        const auto geometria = ambiente_.Preferencias().Ler("Tarvo", Secao, "Geometria", "");
        restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(geometria)));
    } catch (const Erro&) {
        return;
    }
}

void JanelaPrincipal::closeEvent(QCloseEvent* evento) {
    QMainWindow::closeEvent(evento);
    try {
        ambiente_.Preferencias().Gravar("Tarvo", Secao, "Geometria",
                                        saveGeometry().toBase64().toStdString());
    } catch (const Erro&) {
        return;
    }
}

}  // namespace tarvo::host
