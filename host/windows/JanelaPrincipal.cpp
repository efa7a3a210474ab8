#include "host/windows/JanelaPrincipal.h"

#include <QApplication>
#include <QDate>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QStatusBar>

#include "databases/AbrirBanco.h"
#include "desktop/ApoioQt.h"
#include "desktop/Ligacao.h"
#include "dispatch/Declaracoes.h"
#include "document/Imagens.h"
#include "host/windows/AmbienteComJanelas.h"
#include "host/windows/ListaDeclaracoes.h"
#include "host/windows/Recentes.h"

namespace tarvo::host {

using namespace Qt::StringLiterals;

JanelaPrincipal::JanelaPrincipal(AmbienteComJanelas& ambiente)
    : ambiente_(ambiente),
      lugar_(&ambiente.Preferencias(), "JanelaPrincipal", {980, 560}),
      selecao_(this),
      lista_(new ListaDeclaracoes(this)),
      situacao_(new QLabel(u"Nenhum banco aberto. Use Arquivo, Abrir banco."_s, this)) {
    setObjectName(u"janelaPrincipal"_s);
    setWindowTitle(u"Relatórios Tarvo"_s);
    setWindowIcon(IconeDe(&frmFiguras::imgIconeR));
    CriarMenus();
    lista_->aoAbrir = [this] { AbrirDeclaracao(); };
    lista_->aoMudar = [this] { situacao_->setText(lista_->Situacao()); };
    setCentralWidget(lista_);
    situacao_->setObjectName(u"situacao"_s);
    statusBar()->addWidget(situacao_, 1);
    lugar_.Colocar(*this);
}

JanelaPrincipal::~JanelaPrincipal() = default;

void JanelaPrincipal::CriarMenus() {
    const auto acrescentar = [this](QMenu& menu, const QString& texto, auto fazer,
                                    const QKeySequence& atalho = {}) {
        auto* acao = menu.addAction(texto);
        acao->setShortcut(atalho);
        Ligar(acao, &QAction::triggered, this, fazer);
    };
    auto& arquivo = *menuBar()->addMenu(u"&Arquivo"_s);
    acrescentar(
        arquivo, u"&Abrir banco…"_s, [this] { EscolherArquivo(); }, Qt::CTRL | Qt::Key_O);
    auto* recentes = arquivo.addMenu(u"&Recentes"_s);
    recentes->setObjectName(u"recentes"_s);
    Ligar(recentes, &QMenu::aboutToShow, this, [this, recentes] { MostrarRecentes(*recentes); });
    arquivo.addSeparator();
    acrescentar(
        arquivo, u"&Sair"_s, [] { QApplication::closeAllWindows(); }, Qt::CTRL | Qt::Key_Q);
    auto& declaracao = *menuBar()->addMenu(u"&Declaração"_s);
    acrescentar(
        declaracao, u"&Relatórios…"_s, [this] { AbrirDeclaracao(); }, Qt::CTRL | Qt::Key_R);
    acrescentar(declaracao, u"Mês de referência &atual…"_s, [this] { DefinirRefAtual(); });
    acrescentar(
        declaracao, u"&Localizar"_s, [this] { lista_->Localizar(); }, Qt::CTRL | Qt::Key_F);
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
        Ligar(menu.addAction(QString(recente).replace(u'&', u"&&"_s)), &QAction::triggered, this,
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
    Proteger(this, [&] {
        auto banco = AbrirBanco(arquivo);
        const auto fim = ambiente_.ConcluirAndamentoNoFim();
        banco->Acompanhar(ambiente_.DosRelatorios().andamento);
        lista_->Ler(*banco);
        relatorios_.reset();
        banco_ = std::move(banco);
        relatorios_ = std::make_unique<Relatorios>(ambiente_.DosRelatorios(), selecao_);
        const QFileInfo nome(ParaQt(arquivo.string()));
        setWindowTitle(nome.fileName() + u" — Relatórios Tarvo"_s);
        AcrescentarRecente(ambiente_.Preferencias(), nome.absoluteFilePath());
    });
}

void JanelaPrincipal::AbrirDeclaracao() {
    const auto linha = lista_->Escolhida();
    if (!linha || ocupada_) {
        return;
    }
    if (!linha->NroDRQ) {
        return DizerDePassagem(this, u"Este contribuinte não tem declarações."_s);
    }
    const QScopedValueRollback emCurso(ocupada_, true);
    const auto fim = ambiente_.ConcluirAndamentoNoFim();
    const auto IE = linha->IE.empty() ? PerguntarContribuinte() : linha->IE;
    if (!IE.empty()) {
        relatorios_->Executar(*banco_, IE, *linha->NroDRQ, 0);
    }
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
}

void JanelaPrincipal::closeEvent(QCloseEvent* evento) {
    QMainWindow::closeEvent(evento);
    lugar_.Gravar(*this);
}

}  // namespace tarvo::host
