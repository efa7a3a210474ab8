// SPDX-License-Identifier: MIT
#include "host/windows/JanelaPrincipal.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QStatusBar>
#include <QUrl>

#include "databases/postgresql/Endereco.h"
#include "desktop/ApoioQt.h"
#include "desktop/Ligacao.h"
#include "dispatch/Declaracoes.h"
#include "document/Imagens.h"
#include "host/windows/AmbienteComJanelas.h"
#include "host/windows/AvisosDaDeclaracao.h"
#include "host/windows/BancoAberto.h"
#include "host/windows/Explicacao.h"
#include "host/windows/MesDeReferencia.h"
#include "host/windows/Recentes.h"
#include "host/windows/Rodadas.h"
#include "reports/ReferenciaAtual.h"

namespace tarvo::host {

using namespace Qt::StringLiterals;

JanelaPrincipal::JanelaPrincipal(AmbienteComJanelas& ambiente)
    : ambiente_(ambiente),
      lugar_(&ambiente.Preferencias(), "JanelaPrincipal", {1080, 560}),
      situacao_(new QLabel(this)),
      dados_(new QLabel(this)),
      avisos_(new AvisosDaDeclaracao(this)) {
    setObjectName(u"janelaPrincipal"_s);
    setWindowTitle(u"Relatórios Tarvo"_s);
    setWindowIcon(IconeDe(&frmFiguras::imgIconeR));
    setAcceptDrops(true);
    CriarMenusELista();
    situacao_->setObjectName(u"situacao"_s);
    statusBar()->addWidget(situacao_, 1);
    dados_->setObjectName(u"dados"_s);
    statusBar()->addPermanentWidget(avisos_);
    statusBar()->addPermanentWidget(dados_);
    ambiente_.Previas().AoPedir([this](Pedido pedido) { Atender(pedido); });
    AtualizarEstado();
    lugar_.Colocar(*this);
}

JanelaPrincipal::~JanelaPrincipal() {
    ambiente_.Previas().AoPedir(nullptr);
}

void JanelaPrincipal::CriarMenusELista() {
    const auto acrescentar = [this](QMenu& menu, const QString& texto, auto fazer,
                                    const QKeySequence& atalho = {}) {
        auto* acao = menu.addAction(texto);
        acao->setShortcut(atalho);
        Ligar(acao, &QAction::triggered, this, fazer);
        return acao;
    };
    auto& arquivo = *menuBar()->addMenu(u"&Arquivo"_s);
    auto* abrir = acrescentar(
        arquivo, u"Abrir &banco…"_s, [this] { EscolherArquivo(); }, Qt::CTRL | Qt::Key_O);
    acrescentar(
        arquivo, u"R&eler"_s, [this] { Reler(); }, Qt::Key_F5);
    auto* recentes = arquivo.addMenu(u"&Recentes"_s);
    recentes->setObjectName(u"recentes"_s);
    Ligar(recentes, &QMenu::aboutToShow, this, [this, recentes] { MostrarRecentes(*recentes); });
    arquivo.addSeparator();
    acrescentar(
        arquivo, u"&Sair"_s, [] { QApplication::closeAllWindows(); }, Qt::CTRL | Qt::Key_Q);
    auto& declaracao = *menuBar()->addMenu(u"&Declaração"_s);
    relatorios_ = acrescentar(
        declaracao, u"&Relatórios…"_s, [this] { AbrirDeclaracao(); }, Qt::CTRL | Qt::Key_R);
    velo_ = acrescentar(
        declaracao, u"&Guia de arrecadação (VELO)"_s, [this] { MostrarVELO(); },
        Qt::CTRL | Qt::Key_G);
    acrescentar(declaracao, u"Mês de referência &atual…"_s, [this] { DefinirRefAtual(); });
    acrescentar(
        declaracao, u"&Localizar"_s, [this] { lista_->Localizar(); }, Qt::CTRL | Qt::Key_F);
    lista_ = new ListaDeclaracoes(this, *relatorios_, *abrir);
    lista_->aoMudar = [this] { AtualizarEstado(); };
    setCentralWidget(lista_);
}

void JanelaPrincipal::AtualizarEstado() {
    const auto linha = lista_->Escolhida();
    relatorios_->setEnabled(rodadas_ != nullptr && linha && linha->NroDRQ.has_value());
    velo_->setEnabled(rodadas_ != nullptr);
    situacao_->setText(banco_ != nullptr ? lista_->Situacao() : QString());
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

void JanelaPrincipal::Abrir(const std::filesystem::path& arquivo, const LugarNaLista& lugar) {
    if (ocupada_) {
        return;
    }
    const QScopedValueRollback emCurso(ocupada_, true);
    try {
        Trocar(arquivo, lugar);
    } catch (...) {
        const Erro erro = Explicar(ErroCorrente(), arquivo.string());
        std::function<void()> deNovo;
        if (erro.Numero() == NumeroErro::BancoOcupado ||
            erro.Numero() == NumeroErro::ServidorInacessivel) {
            deNovo = [this, arquivo, lugar] { Abrir(arquivo, lugar); };
        }
        DizerErro(this, erro, deNovo);
    }
}

void JanelaPrincipal::Trocar(const std::filesystem::path& arquivo, const LugarNaLista& lugar) {
    Ler(arquivo, lugar);
    avisos_->Esquecer();
    rodadas_ = std::make_unique<Rodadas>(ambiente_, *this, *avisos_);
    AtualizarEstado();
    setWindowTitle(banco_->Nome() + u" — Relatórios Tarvo"_s);
    AcrescentarRecente(ambiente_.Preferencias(), banco_->Recente());
    DizerDosDados();
}

// What is open stays as it was when this one cannot be read.
void JanelaPrincipal::Ler(const std::filesystem::path& arquivo, const LugarNaLista& lugar) {
    const auto fim = ambiente_.ConcluirAndamentoNoFim();
    auto banco = std::make_unique<BancoAberto>(arquivo, ambiente_.DosRelatorios().andamento);
    lista_->Ler(banco->Lista(), lugar);
    banco_ = std::move(banco);
    AtualizarEstado();
}

void JanelaPrincipal::Reabrir() {
    const auto recentes = LerRecentes(ambiente_.Preferencias());
    if (!recentes.isEmpty() && (QFileInfo::exists(recentes.first()) ||
                                postgresql::EhEndereco(recentes.first().toStdString()))) {
        Abrir(recentes.first().toStdString(), LerLugar(ambiente_.Preferencias()));
    }
}

void JanelaPrincipal::Reler() {
    if (banco_ == nullptr || ocupada_) {
        return;
    }
    const QScopedValueRollback emCurso(ocupada_, true);
    if (!RelerSeMudou()) {
        DizerDePassagem(this, u"O arquivo não mudou."_s);
    }
}

bool JanelaPrincipal::RelerSeMudou() {
    if (!banco_->TemNovidade()) {
        return false;
    }
    const auto endereco = banco_->Endereco();
    try {
        Ler(endereco, lista_->Lugar());
    } catch (...) {
        throw Explicar(ErroCorrente(), endereco.string());
    }
    DizerDosDados();
    return true;
}

void JanelaPrincipal::DizerDosDados() {
    const auto avisos = banco_->Avisos();
    dados_->setText(banco_->Situacao());
    dados_->setToolTip(avisos.join(u'\n'));
    if (!avisos.isEmpty()) {
        DizerDePassagem(this, u"Aviso: "_s + avisos.join(u"; "_s));
    }
}

void JanelaPrincipal::AbrirDeclaracao() {
    const auto linha = lista_->Escolhida();
    if (!linha || ocupada_ || rodadas_ == nullptr || !linha->NroDRQ) {
        return;
    }
    const QScopedValueRollback emCurso(ocupada_, true);
    const auto IE = linha->IE.empty() ? PerguntarContribuinte() : linha->IE;
    if (!IE.empty()) {
        rodadas_->Executar(banco_->Banco(), {IE, *linha->NroDRQ});
    }
}

void JanelaPrincipal::MostrarVELO() {
    if (!ocupada_) {
        const QScopedValueRollback emCurso(ocupada_, true);
        rodadas_->MostrarVELO(banco_->Banco());
    }
}

// What a preview asks for.
void JanelaPrincipal::Atender(Pedido pedido) {
    if (ocupada_ || rodadas_ == nullptr || !rodadas_->Ultima()) {
        return;
    }
    const QScopedValueRollback emCurso(ocupada_, true);
    auto declaracao = *rodadas_->Ultima();
    if (pedido == Pedido::Atualizar) {
        RelerSeMudou();
    } else {
        const bool proxima = pedido == Pedido::ProximaDeclaracao;
        const auto linha = lista_->IrAVizinha(declaracao.IE, declaracao.NroDRQ, proxima ? 1 : -1);
        if (!linha) {
            return DizerDePassagem(QApplication::activeWindow(),
                                   proxima ? u"Esta é a última declaração da lista."_s
                                           : u"Esta é a primeira declaração da lista."_s);
        }
        declaracao.IE = linha->IE.empty() ? declaracao.IE : linha->IE;
        declaracao.NroDRQ = *linha->NroDRQ;
    }
    rodadas_->Repetir(banco_->Banco(), declaracao);
}

std::string JanelaPrincipal::PerguntarContribuinte() {
    QStringList contribuintes;
    for (const auto& contribuinte : LerContribuintes(banco_->Banco())) {
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
                                  ParaQt(LerRefAtual(preferencias)));
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
    if (ocupada_ || (FabricaVisualizadoresQt::Imprimindo() && !fechar())) {
        evento->ignore();
        return;
    }
    QMainWindow::closeEvent(evento);
    lugar_.Gravar(*this);
    if (banco_ != nullptr) {
        GravarLugar(ambiente_.Preferencias(), lista_->Lugar());
    }
    rodadas_.reset();
    AtualizarEstado();
}

void JanelaPrincipal::dragEnterEvent(QDragEnterEvent* evento) {
    if (evento->mimeData()->urls().value(0).isLocalFile()) {
        evento->acceptProposedAction();
    }
}

void JanelaPrincipal::dropEvent(QDropEvent* evento) {
    Abrir(evento->mimeData()->urls().value(0).toLocalFile().toStdString());
}

}  // namespace tarvo::host
