// SPDX-License-Identifier: MIT
#include "desktop/preview/JanelaVisualizacao.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QLabel>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "desktop/ApoioQt.h"
#include "desktop/DialogoDeSalvar.h"
#include "desktop/Ligacao.h"
#include "desktop/preview/AcoesDaRodada.h"
#include "desktop/preview/AcoesDaVista.h"
#include "desktop/preview/BarraDeBusca.h"
#include "desktop/preview/BarraDeFerramentas.h"
#include "desktop/preview/BuscaTexto.h"
#include "desktop/preview/GrupoDePrevias.h"
#include "desktop/preview/PainelLateral.h"
#include "desktop/preview/PintorPaginas.h"
#include "desktop/preview/PreferenciasDaVista.h"
#include "desktop/preview/VistaPaginas.h"
#include "system/files/Arquivos.h"

namespace tarvo {

using namespace Qt::StringLiterals;

JanelaVisualizacao::JanelaVisualizacao(ConfiguracoesIni* preferencias, GrupoDePrevias& grupo)
    : preferencias_(preferencias),
      grupo_(grupo),
      lugar_(preferencias, "Visualizacao", {900, 1000}),
      acoes_(*this),
      vista_(new VistaPaginas(this)),
      acoesDasTabelas_(acoes_, *this, *vista_, documento_),
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
    CriarPainel();
    CriarImpressao();
    LigarAcoes();
    LigarAcoesDaVista(acoes_, *vista_);
    LigarAcoesDaRodada(acoes_, *this, grupo_);
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
    Encerrar();
}

// --- the parts

void JanelaVisualizacao::CriarBarraDeEstado() {
    situacaoPagina_ = new QLabel(this);
    situacaoPagina_->setObjectName(u"situacaoPagina"_s);
    situacaoAvisos_ = new QToolButton(this);
    situacaoAvisos_->setObjectName(u"situacaoAvisos"_s);
    situacaoAvisos_->setAutoRaise(true);
    situacaoAvisos_->setToolTip(u"O que as páginas não mostram como se espera"_s);
    Ligar(situacaoAvisos_, &QToolButton::clicked, this, [this] { painel_->MostrarAvisos(); });
    statusBar()->addPermanentWidget(situacaoAvisos_);
    statusBar()->addPermanentWidget(situacaoPagina_);
}

void JanelaVisualizacao::CriarPainel() {
    constexpr int Largura = 210;  // pixels, until the user chooses another
    painel_ = new PainelLateral(this);
    painel_->aoEscolher = [this](int pagina, const QRectF& lugar) {
        lugar.isNull() ? vista_->IrPara(pagina) : vista_->Revelar(pagina, lugar);
    };
    addDockWidget(Qt::LeftDockWidgetArea, painel_);
    resizeDocks({painel_}, {Largura}, Qt::Horizontal);
    painel_->hide();
    auto& acao = acoes_[Acao::Painel];
    Ligar(&acao, &QAction::toggled, painel_,
          [this](bool visivel) { painel_->setVisible(visivel); });
    Ligar(painel_, &QDockWidget::visibilityChanged, this, [this, &acao] {
        acao.setChecked(!painel_->isHidden());
        painel_->Marcar(vista_->Pagina());
    });
}

void JanelaVisualizacao::CriarImpressao() {
    impressao_ = new ImpressaoQt(this, preferencias_);
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
    ligar(Acao::LocalizarProximo, [this] { barraDeBusca_->Mover(1); });
    ligar(Acao::LocalizarAnterior, [this] { barraDeBusca_->Mover(-1); });
    ligar(Acao::TelaCheia, [this] {
        window()->setWindowState(window()->windowState() ^ Qt::WindowFullScreen);
        AtualizarEstado();
    });
    ligar(Acao::IrParaPagina, [this] { barraDeFerramentas_->PedirPagina(); });
    ligar(Acao::Atalhos, [this] { AcoesDaVisualizacao::MostrarAtalhos(this); });
}

// --- the document

void JanelaVisualizacao::Mostrar(DocumentoPronto documento) {
    const bool fica = grupo_.OQuePermanece() == Permanece::Paginas && Aberta();
    const auto lugar = vista_->Lugar();
    const bool lendo = vista_->Leitor().Cursor().has_value();
    Esvaziar();
    documento_ = std::move(documento);
    pintor_ = std::make_unique<PintorPaginas>(documento_.pdf);
    pintor_->aoPintar = [this](const Recorte&) {
        vista_->viewport()->update();
        painel_->Atualizar();
    };
    setWindowTitle(documento_.titulo);
    setWindowIcon(IconeDe(documento_.icone));
    DizerAvisos();
    painel_->Mostrar(pintor_.get(), &documento_);
    barraDeBusca_->Mostrar(&pintor_->Documento());
    vista_->Mostrar(pintor_.get(), barraDeBusca_->Busca(), &documento_);
    if (fica) {
        vista_->Ir(lugar);
    }
    vista_->Leitor().DefinirCursor(lendo);
    vista_->setFocus();
    grupo_.Mostrar(*this);
}

void JanelaVisualizacao::DizerAvisos() {
    const auto avisos = documento_.avisos.size();
    const auto cortes = documento_.cortados.size();
    QStringList partes;
    if (avisos > 0) {
        partes << (avisos == 1 ? u"1 aviso"_s : u"%1 avisos"_s.arg(avisos));
    }
    if (cortes > 0) {
        partes << (cortes == 1 ? u"1 texto cortado"_s : u"%1 textos cortados"_s.arg(cortes));
    }
    situacaoAvisos_->setText(partes.join(u", "_s));
    situacaoAvisos_->setVisible(!partes.isEmpty());
}

void JanelaVisualizacao::MostrarEmJanela() {
    if (!isVisible()) {
        lugar_.Colocar(*this);
    }
    show();
    raise();
    activateWindow();
}

void JanelaVisualizacao::Encerrar() {
    if (!Aberta()) {
        return;
    }
    impressao_->Cancelar();
    for (auto* dialogo : findChildren<QDialog*>()) {
        dialogo->close();
    }
    GravarPreferencias();
    hide();
    grupo_.Retirar(*this);
    Esvaziar();
}

void JanelaVisualizacao::Esvaziar() {
    vista_->Mostrar(nullptr, nullptr, nullptr);
    painel_->Mostrar(nullptr, nullptr);
    barraDeBusca_->Mostrar(nullptr);
    pintor_.reset();
    documento_ = {};
}

void JanelaVisualizacao::AtualizarEstado() {
    if (!Aberta()) {
        return;
    }
    situacaoPagina_->setText(u"Página %1 de %2"_s.arg(vista_->Pagina() + 1).arg(vista_->Paginas()));
    painel_->Marcar(vista_->Pagina());
    AtualizarAcoesDaVista(acoes_, *vista_);
    AtualizarAcoesDaRodada(acoes_, grupo_);
    acoes_[Acao::Imprimir].setEnabled(!impressao_->EmCurso());
    acoes_[Acao::TelaCheia].setChecked(window()->isFullScreen());
    barraDeFerramentas_->Atualizar();
}

DocumentoImpresso JanelaVisualizacao::ParaImprimir() const {
    return {documento_.pdf, documento_.tituloResumido, pintor_->Paginas()};
}

QString JanelaVisualizacao::TituloResumido() const {
    return ParaQt(documento_.tituloResumido);
}

void JanelaVisualizacao::Imprimir() {
    if (!impressao_->EmCurso()) {
        impressao_->Imprimir(ParaImprimir(), Pergunta::Sempre);
        AtualizarEstado();
    }
}

void JanelaVisualizacao::Salvar() {
    PerguntarOndeSalvar(this, u"Salvar como PDF"_s, TituloResumido(), {u"Documentos PDF (*.pdf)"_s},
                        [this, pdf = documento_.pdf](const QString& arquivo) {
                            GravarArquivo(arquivo.toStdString(), *pdf);
                            DizerDePassagem(this, u"Salvo em %1"_s.arg(arquivo));
                        });
}

// --- the user's preferences

void JanelaVisualizacao::LerPreferencias() {
    const auto preferidas = PreferenciasDaVista::Ler(preferencias_);
    vista_->DefinirContinuo(preferidas.continuo);
    if (preferidas.ajuste == Ajuste::Livre) {
        vista_->Ampliar(preferidas.ampliacao);
    } else {
        vista_->Ajustar(preferidas.ajuste);
    }
    vista_->DefinirLadoALado(preferidas.ladoALado);
    acoes_[Acao::Painel].setChecked(preferidas.painel);
}

void JanelaVisualizacao::GravarPreferencias() {
    if (isWindow()) {
        lugar_.Gravar(*this);
    }
    PreferenciasDaVista{.ajuste = vista_->AjusteAtual(),
                        .ampliacao = vista_->AmpliacaoAtual(),
                        .continuo = vista_->Continuo(),
                        .ladoALado = vista_->LadoALado(),
                        .painel = acoes_[Acao::Painel].isChecked(),
                        .emAbas = grupo_.EmAbas()}
        .Gravar(preferencias_);
}

void JanelaVisualizacao::closeEvent(QCloseEvent* evento) {
    QMainWindow::closeEvent(evento);
    Encerrar();
}

// Others may have come or gone while this one was not in front.
void JanelaVisualizacao::changeEvent(QEvent* evento) {
    QMainWindow::changeEvent(evento);
    if (evento->type() == QEvent::ActivationChange) {
        AtualizarEstado();
    }
}

}  // namespace tarvo
