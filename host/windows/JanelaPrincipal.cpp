#include "host/windows/JanelaPrincipal.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <QStatusBar>

#include "desktop/ApoioQt.h"
#include "desktop/Ligacao.h"
#include "dispatch/Declaracoes.h"
#include "document/Imagens.h"
#include "host/windows/AmbienteComJanelas.h"
#include "host/windows/AvisosDaDeclaracao.h"
#include "host/windows/Explicacao.h"
#include "host/windows/ListaDeclaracoes.h"
#include "host/windows/MesDeReferencia.h"
#include "host/windows/Recentes.h"
#include "reports/ReferenciaAtual.h"

namespace tarvo::host {

using namespace Qt::StringLiterals;

JanelaPrincipal::JanelaPrincipal(AmbienteComJanelas& ambiente)
    : ambiente_(ambiente),
      lugar_(&ambiente.Preferencias(), "JanelaPrincipal", {980, 560}),
      selecao_(this),
      lista_(new ListaDeclaracoes(this)),
      situacao_(new QLabel(u"Nenhum banco aberto. Use Arquivo, Abrir banco."_s, this)),
      dados_(new QLabel(this)),
      avisos_(new AvisosDaDeclaracao(this)) {
    setObjectName(u"janelaPrincipal"_s);
    setWindowTitle(u"Relatórios Tarvo"_s);
    setWindowIcon(IconeDe(&frmFiguras::imgIconeR));
    CriarMenus();
    lista_->aoAbrir = [this] { AbrirDeclaracao(); };
    lista_->aoMudar = [this] { situacao_->setText(lista_->Situacao()); };
    setCentralWidget(lista_);
    situacao_->setObjectName(u"situacao"_s);
    statusBar()->addWidget(situacao_, 1);
    dados_->setObjectName(u"dados"_s);
    statusBar()->addPermanentWidget(avisos_);
    statusBar()->addPermanentWidget(dados_);
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
    acrescentar(
        arquivo, u"R&eler"_s, [this] { Reler(); }, Qt::Key_F5);
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
        u"Bancos de declarações (*.tarvo *.mdb *.accdb *.db *.sqlite);;Todos os arquivos (*)"_s);
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
        try {
            Trocar(arquivo);
        } catch (...) {
            throw Explicar(ErroCorrente(), arquivo.string());
        }
    });
}

void JanelaPrincipal::Trocar(const std::filesystem::path& arquivo) {
    OrigemBanco origem(arquivo);
    auto banco = origem.Abrir();
    const auto fim = ambiente_.ConcluirAndamentoNoFim();
    banco->Acompanhar(ambiente_.DosRelatorios().andamento);
    lista_->Ler(*banco);
    avisos_->Esquecer();
    relatorios_.reset();
    banco_ = std::move(banco);
    origem_ = std::move(origem);
    arquivo_ = arquivo;
    relatorios_ = std::make_unique<Relatorios>(ambiente_.DosRelatorios(), selecao_);
    const QFileInfo nome(ParaQt(arquivo.string()));
    setWindowTitle(nome.fileName() + u" — Relatórios Tarvo"_s);
    AcrescentarRecente(ambiente_.Preferencias(), nome.absoluteFilePath());
    DizerDosDados();
}

void JanelaPrincipal::Reler() {
    if (!origem_ || ocupada_) {
        return;
    }
    if (origem_->LidaEm() && !origem_->Mudou()) {
        return DizerDePassagem(this, u"O arquivo não mudou."_s);
    }
    Abrir(arquivo_);
}

void JanelaPrincipal::DizerDosDados() {
    QStringList avisos;
    for (const std::string& aviso : origem_->Avisos()) {
        avisos << ParaQt(aviso);
    }
    QString texto;
    if (const auto lidaEm = origem_->LidaEm()) {
        const auto quando =
            QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(*lidaEm));
        texto = u"dados de %1%2, F5 relê"_s.arg(quando.toString(u"HH:mm"_s),
                                                avisos.isEmpty() ? u""_s : u" (com aviso)"_s);
    }
    dados_->setText(texto);
    dados_->setToolTip(avisos.join(u'\n'));
    if (!avisos.isEmpty()) {
        DizerDePassagem(this, u"Aviso: "_s + avisos.join(u"; "_s));
    }
}

void JanelaPrincipal::AbrirDeclaracao() {
    const auto linha = lista_->Escolhida();
    if (!linha || ocupada_ || relatorios_ == nullptr) {
        return;
    }
    if (!linha->NroDRQ) {
        return DizerDePassagem(this, u"Este contribuinte não tem declarações."_s);
    }
    const QScopedValueRollback emCurso(ocupada_, true);
    const auto IE = linha->IE.empty() ? PerguntarContribuinte() : linha->IE;
    if (IE.empty()) {
        return;
    }
    const AmbienteComJanelas::Rodada rodada(ambiente_, this,
                                            MesDaDeclaracao(*banco_, *linha->NroDRQ));
    try {
        relatorios_->Executar(*banco_, IE, *linha->NroDRQ, 0);
    } catch (...) {
        throw Explicar(ErroCorrente(), relatorios_->QueFalhou());
    }
    if (!relatorios_->Produzidos().empty()) {
        avisos_->Mostrar(*banco_, RevisaoDoProduzido(IE, *linha->NroDRQ, relatorios_->Produzidos(),
                                                     &ambiente_.DaChamada()));
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
    using namespace AjusteRefAtual;
    auto& preferencias = ambiente_.Preferencias();
    const auto mes = PerguntarMes(this, u"Mês e ano (MM/AAAA) que os resumos dos CFOPs usam:"_s,
                                  ParaQt(preferencias.Ler(Aplicacao, Secao, Chave, "")));
    if (mes) {
        preferencias.Gravar(Aplicacao, Secao, Chave, *mes);
    }
}

void JanelaPrincipal::closeEvent(QCloseEvent* evento) {
    const auto fechar = [this] {
        return QMessageBox::question(this, windowTitle(),
                                     u"Um relatório ainda está a caminho da impressora. Fechar e "
                                     "desistir dele?"_s) == QMessageBox::Yes;
    };
    if (ocupada_ || (AmbienteComJanelas::Imprimindo() && !fechar())) {
        evento->ignore();
        return;
    }
    QMainWindow::closeEvent(evento);
    lugar_.Gravar(*this);
    relatorios_.reset();
}

}  // namespace tarvo::host
