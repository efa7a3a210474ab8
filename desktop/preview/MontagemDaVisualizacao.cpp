#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QSpinBox>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "desktop/ApoioQt.h"
#include "desktop/preview/BarraDeBusca.h"
#include "desktop/preview/BuscaTexto.h"
#include "desktop/preview/Comandos.h"
#include "desktop/preview/JanelaVisualizacao.h"
#include "desktop/preview/Miniaturas.h"
#include "desktop/preview/PintorPaginas.h"
#include "desktop/preview/VistaPaginas.h"
#include "desktop/printing/ImpressaoQt.h"

// The parts of the preview window and how they are tied together.
namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

constexpr int Percentuais[] = {25, 50, 75, 100, 125, 150, 200, 400, 800};

}  // namespace

void JanelaVisualizacao::CriarBarraDeFerramentas() {
    auto* barra = addToolBar(u"Ferramentas"_s);
    barra->setObjectName(u"ferramentas"_s);
    barra->setMovable(false);
    barra->setContextMenuPolicy(Qt::PreventContextMenu);
    const auto acrescentar = [&](std::initializer_list<Comando> comandos) {
        for (const auto comando : comandos) {
            barra->addAction(&(*comandos_)[comando]);
        }
        barra->addSeparator();
    };
    acrescentar({Comando::Imprimir, Comando::Salvar});
    acrescentar({Comando::Miniaturas, Comando::Primeira, Comando::Anterior});
    campoPagina_ = new QSpinBox(barra);
    campoPagina_->setObjectName(u"campoPagina"_s);
    campoPagina_->setAccessibleName(u"Página"_s);
    campoPagina_->setToolTip(u"Ir para a página (Ctrl+G)"_s);
    campoPagina_->setKeyboardTracking(false);
    campoPagina_->setButtonSymbols(QAbstractSpinBox::NoButtons);
    campoPagina_->setAlignment(Qt::AlignRight);
    connect(campoPagina_, &QSpinBox::valueChanged, this,
            [this](int pagina) { vista_->IrPara(pagina - 1); });
    connect(campoPagina_, &QSpinBox::editingFinished, vista_, [this] { vista_->setFocus(); });
    totalPaginas_ = new QLabel(barra);
    barra->addWidget(campoPagina_);
    barra->addWidget(totalPaginas_);
    acrescentar({Comando::Proxima, Comando::Ultima});
    barra->addAction(&(*comandos_)[Comando::Reduzir]);
    campoAmpliacao_ = new QComboBox(barra);
    campoAmpliacao_->setObjectName(u"campoAmpliacao"_s);
    campoAmpliacao_->setAccessibleName(u"Ampliação"_s);
    campoAmpliacao_->setToolTip(u"Ampliação, de 25 % a 800 %"_s);
    campoAmpliacao_->setEditable(true);
    campoAmpliacao_->setInsertPolicy(QComboBox::NoInsert);
    campoAmpliacao_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    campoAmpliacao_->addItems({u"Página inteira"_s, u"Largura da página"_s});
    for (const int percentual : Percentuais) {
        campoAmpliacao_->addItem(u"%1 %"_s.arg(percentual));
    }
    connect(campoAmpliacao_, &QComboBox::activated, this, [this] { LerAmpliacao(); });
    connect(campoAmpliacao_->lineEdit(), &QLineEdit::returnPressed, this,
            [this] { LerAmpliacao(); });
    barra->addWidget(campoAmpliacao_);
    acrescentar(
        {Comando::Ampliar, Comando::PaginaInteira, Comando::LarguraDaPagina, Comando::Continuo});
    barra->addAction(&(*comandos_)[Comando::Localizar]);
}

void JanelaVisualizacao::CriarBarraDeEstado() {
    situacaoPagina_ = new QLabel(this);
    situacaoPagina_->setObjectName(u"situacaoPagina"_s);
    situacaoCortes_ = new QToolButton(this);
    situacaoCortes_->setObjectName(u"situacaoCortes"_s);
    situacaoCortes_->setAutoRaise(true);
    situacaoCortes_->setToolTip(u"Mostrar os textos que não couberam inteiros"_s);
    connect(situacaoCortes_, &QToolButton::clicked, this, [this] { MostrarCortados(); });
    statusBar()->addPermanentWidget(situacaoCortes_);
    statusBar()->addPermanentWidget(situacaoPagina_);
}

void JanelaVisualizacao::CriarBusca() {
    barraDeBusca_ = new BarraDeBusca(centralWidget(), (*comandos_)[Comando::LocalizarProximo],
                                     (*comandos_)[Comando::LocalizarAnterior]);
    barraDeBusca_->hide();
    centralWidget()->layout()->addWidget(barraDeBusca_);
    barraDeBusca_->aoDigitar = [this](const QString& texto) {
        if (busca_ != nullptr) {
            busca_->Procurar(texto, vista_->Pagina());
        }
    };
    barraDeBusca_->aoPedirOutro = [this](bool adiante) {
        Executar(adiante ? Comando::LocalizarProximo : Comando::LocalizarAnterior);
    };
    barraDeBusca_->aoFechar = [this] { FecharBusca(); };
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
    auto& acao = (*comandos_)[Comando::Miniaturas];
    connect(&acao, &QAction::toggled, doca, &QWidget::setVisible);
    connect(doca, &QDockWidget::visibilityChanged, &acao, [this, doca, &acao] {
        acao.setChecked(!doca->isHidden());
        miniaturas_->Marcar(vista_->Pagina());
    });
}

void JanelaVisualizacao::CriarImpressao() {
    impressao_ = new ImpressaoQt(this);
    impressao_->aoMudar = [this](const QString& situacao) { statusBar()->showMessage(situacao); };
    impressao_->aoTerminar = [this](const std::optional<Erro>& erro) {
        AtualizarEstado();
        if (!erro) {
            statusBar()->showMessage(u"Enviado à impressora."_s, 5000);
        } else if (erro->Numero() == NumeroErro::Cancelado) {
            statusBar()->showMessage(ParaQt(erro->Descricao()), 5000);
        } else {
            statusBar()->clearMessage();
            Dizer(QMessageBox::Warning, TextoDoErro(*erro));
        }
    };
}

}  // namespace tarvo
