#include "desktop/preview/JanelaVisualizacao.h"

#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QShowEvent>
#include <QStandardPaths>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "desktop/ApoioQt.h"
#include "desktop/Ligacao.h"
#include "desktop/preview/BarraDeBusca.h"
#include "desktop/preview/BarraDeFerramentas.h"
#include "desktop/preview/BuscaTexto.h"
#include "desktop/preview/Miniaturas.h"
#include "desktop/preview/PintorPaginas.h"
#include "desktop/preview/PreferenciasDaVista.h"
#include "desktop/preview/TextosCortados.h"
#include "desktop/preview/VistaPaginas.h"
#include "system/files/Arquivos.h"

namespace tarvo {

using namespace Qt::StringLiterals;

JanelaVisualizacao::JanelaVisualizacao(ConfiguracoesIni* preferencias)
    : preferencias_(preferencias),
      lugar_(preferencias, "Visualizacao", {900, 1000}),
      acoes_(*this),
      vista_(new VistaPaginas(this)),
      acoesDaVista_(acoes_, *vista_),
      barraDeFerramentas_(new BarraDeFerramentas(this, acoes_, *vista_)),
      barraDeBusca_(
          new BarraDeBusca(this, acoes_[Acao::LocalizarProximo], acoes_[Acao::LocalizarAnterior])) {
    setObjectName(u"visualizacao"_s);
    auto* centro = new QWidget(this);
    auto* colunas = new QVBoxLayout(centro);
    colunas->setContentsMargins(0, 0, 0, 0);
    colunas->setSpacing(0);
    colunas->addWidget(vista_, 1);
    colunas->addWidget(barraDeBusca_);
    setCentralWidget(centro);
    addToolBar(barraDeFerramentas_);
    CriarBarraDeEstado();
    CriarMiniaturas();
    CriarImpressao();
    LigarAcoes();
    vista_->aoMudar = [this] { AtualizarEstado(); };
    barraDeBusca_->paginaAtual = [this] { return vista_->Pagina(); };
    barraDeBusca_->aoFechar = [this] { vista_->setFocus(); };
    barraDeBusca_->aoMudar = [this](bool novoAtual) {
        if (novoAtual) {
            const auto& busca = *barraDeBusca_->Busca();
            const auto marcas = busca.MarcaAtual();
            vista_->Revelar(busca.Atual()->pagina,
                            marcas.isEmpty() ? QRectF() : marcas.first().boundingRect());
        }
        vista_->viewport()->update();
    };
    LerPreferencias();
    vista_->setFocus();
}

JanelaVisualizacao::~JanelaVisualizacao() {
    hide();
    Esvaziar();
}

// --- the parts

void JanelaVisualizacao::CriarBarraDeEstado() {
    situacaoPagina_ = new QLabel(this);
    situacaoPagina_->setObjectName(u"situacaoPagina"_s);
    situacaoCortes_ = new QToolButton(this);
    situacaoCortes_->setObjectName(u"situacaoCortes"_s);
    situacaoCortes_->setAutoRaise(true);
    situacaoCortes_->setToolTip(u"Mostrar os textos que não couberam inteiros"_s);
    Ligar(situacaoCortes_, &QToolButton::clicked, this, [this] {
        auto* dialogo = new TextosCortados(this, documento_.cortados);
        dialogo->aoEscolher = [this](int pagina) { vista_->IrPara(pagina); };
        dialogo->show();
    });
    statusBar()->addPermanentWidget(situacaoCortes_);
    statusBar()->addPermanentWidget(situacaoPagina_);
}

void JanelaVisualizacao::CriarMiniaturas() {
    auto* doca = new QDockWidget(u"Miniaturas"_s, this);
    doca->setObjectName(u"docaMiniaturas"_s);
    doca->setFeatures(QDockWidget::DockWidgetClosable);
    miniaturas_ = new Miniaturas(doca);
    miniaturas_->aoEscolher = [this](int pagina) { vista_->IrPara(pagina); };
    doca->setWidget(miniaturas_);
    addDockWidget(Qt::LeftDockWidgetArea, doca);
    doca->hide();
    auto& acao = acoes_[Acao::Miniaturas];
    Ligar(&acao, &QAction::toggled, doca, [doca](bool visivel) { doca->setVisible(visivel); });
    Ligar(doca, &QDockWidget::visibilityChanged, this, [this, doca, &acao] {
        acao.setChecked(!doca->isHidden());
        miniaturas_->Marcar(vista_->Pagina());
    });
}

void JanelaVisualizacao::CriarImpressao() {
    impressao_ = new ImpressaoQt(this);
    impressao_->aoMudar = [this](const QString& situacao) { statusBar()->showMessage(situacao); };
    impressao_->aoTerminar = [this](const std::optional<Erro>& erro) {
        AtualizarEstado();
        statusBar()->clearMessage();
        if (erro) {
            DizerErro(this, *erro);
        } else {
            DizerDePassagem(
                this, u"Enviado à impressora %1."_s.arg(ParaQt(impressao_->Opcoes().impressora)));
        }
    };
}

void JanelaVisualizacao::LigarAcoes() {
    const auto ligar = [this](Acao acao, auto fazer) {
        Ligar(&acoes_[acao], &QAction::triggered, this, fazer);
    };
    ligar(Acao::Imprimir, [this] { Imprimir(); });
    ligar(Acao::Salvar, [this] { Salvar(); });
    ligar(Acao::Fechar, [this] { close(); });
    ligar(Acao::Copiar, [this] { QApplication::clipboard()->setText(vista_->Selecao().Texto()); });
    ligar(Acao::Localizar, [this] { barraDeBusca_->Abrir(); });
    ligar(Acao::LocalizarProximo, [this] { barraDeBusca_->Avancar(); });
    ligar(Acao::LocalizarAnterior, [this] { barraDeBusca_->Recuar(); });
    ligar(Acao::IrParaPagina, [this] { barraDeFerramentas_->PedirPagina(); });
    ligar(Acao::Atalhos, [this] { Dizer(this, AcoesDaVisualizacao::ListaDeAtalhos()); });
}

// --- the document

void JanelaVisualizacao::Mostrar(DocumentoPronto documento) {
    Esvaziar();
    documento_ = std::move(documento);
    pintor_ = std::make_unique<PintorPaginas>(documento_.pdf);
    pintor_->aoPintar = [this](const Recorte&) {
        vista_->viewport()->update();
        miniaturas_->Atualizar();
    };
    setWindowTitle(documento_.titulo);
    setWindowIcon(IconeDe(documento_.icone));
    const auto cortes = documento_.cortados.size();
    situacaoCortes_->setVisible(cortes > 0);
    situacaoCortes_->setText(cortes == 1 ? u"1 texto cortado"_s
                                         : u"%1 textos cortados"_s.arg(cortes));
    miniaturas_->Mostrar(pintor_.get());
    barraDeBusca_->Mostrar(&pintor_->Documento());
    vista_->Mostrar(pintor_.get(), barraDeBusca_->Busca(), &documento_.celulas);
    vista_->setFocus();
    if (!isVisible()) {
        lugar_.Colocar(*this);
    }
    show();
    raise();
    activateWindow();
}

void JanelaVisualizacao::Esvaziar() {
    vista_->Mostrar(nullptr, nullptr, nullptr);
    miniaturas_->Mostrar(nullptr);
    barraDeBusca_->Mostrar(nullptr);
    pintor_.reset();
    documento_ = {};
}

void JanelaVisualizacao::AtualizarEstado() {
    if (pintor_ == nullptr) {
        return;
    }
    situacaoPagina_->setText(u"Página %1 de %2"_s.arg(vista_->Pagina() + 1).arg(vista_->Paginas()));
    miniaturas_->Marcar(vista_->Pagina());
    acoesDaVista_.Atualizar();
    acoes_[Acao::Imprimir].setEnabled(!impressao_->EmCurso());
    barraDeFerramentas_->Atualizar();
}

void JanelaVisualizacao::Imprimir() {
    if (!impressao_->EmCurso()) {
        impressao_->Imprimir({documento_.pdf, documento_.tituloResumido, pintor_->Paginas()},
                             Pergunta::Sempre);
        AtualizarEstado();
    }
}

void JanelaVisualizacao::Salvar() {
    auto* dialogo = new QFileDialog(this, u"Salvar como PDF"_s);
    dialogo->setAttribute(Qt::WA_DeleteOnClose);
    dialogo->setAcceptMode(QFileDialog::AcceptSave);
    dialogo->setNameFilter(u"Documentos PDF (*.pdf)"_s);
    dialogo->setDefaultSuffix(u"pdf"_s);
    dialogo->setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialogo->selectFile(ParaQt(documento_.tituloResumido).replace(u'/', u'-') + u".pdf"_s);
    Ligar(dialogo, &QFileDialog::fileSelected, this,
          [this, pdf = documento_.pdf](const QString& arquivo) {
              GravarArquivo(arquivo.toStdString(), *pdf);
              DizerDePassagem(this, u"Salvo em %1"_s.arg(arquivo));
          });
    dialogo->open();
}

// --- the user's preferences

void JanelaVisualizacao::LerPreferencias() {
    if (preferencias_ == nullptr) {
        return;
    }
    const auto preferidas = PreferenciasDaVista::Ler(*preferencias_);
    vista_->DefinirContinuo(preferidas.continuo);
    if (preferidas.ajuste == Ajuste::Livre) {
        vista_->Ampliar(preferidas.ampliacao);
    } else {
        vista_->Ajustar(preferidas.ajuste);
    }
    acoes_[Acao::Miniaturas].setChecked(preferidas.miniaturas);
}

void JanelaVisualizacao::GravarPreferencias() {
    lugar_.Gravar(*this);
    if (preferencias_ != nullptr) {
        PreferenciasDaVista{.ajuste = vista_->AjusteAtual(),
                            .ampliacao = vista_->AmpliacaoAtual(),
                            .continuo = vista_->Continuo(),
                            .miniaturas = acoes_[Acao::Miniaturas].isChecked()}
            .Gravar(*preferencias_);
    }
}

void JanelaVisualizacao::hideEvent(QHideEvent* evento) {
    QMainWindow::hideEvent(evento);
    if (!evento->spontaneous()) {
        impressao_->Cancelar();
        for (auto* dialogo : findChildren<QDialog*>()) {
            dialogo->close();
        }
        GravarPreferencias();
        Esvaziar();
    }
}

}  // namespace tarvo
