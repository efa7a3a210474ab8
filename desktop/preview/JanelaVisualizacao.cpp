#include "desktop/preview/JanelaVisualizacao.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QShowEvent>
#include <QSpinBox>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "desktop/ApoioQt.h"
#include "desktop/preview/BarraDeBusca.h"
#include "desktop/preview/BuscaTexto.h"
#include "desktop/preview/Comandos.h"
#include "desktop/preview/Miniaturas.h"
#include "desktop/preview/PintorPaginas.h"
#include "desktop/preview/PreferenciasDaVista.h"
#include "desktop/preview/VistaPaginas.h"
#include "desktop/printing/ImpressaoQt.h"
#include "system/files/Arquivos.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

QString Percentual(double ampliacao) {
    return u"%1 %"_s.arg(std::lround(ampliacao * 100));
}

}  // namespace

DocumentoPronto Preparar(const Conteudo& conteudo) {
    auto bytes = std::make_shared<std::string>();
    auto resultado = RenderizarPDF(conteudo, *bytes);
    return {.pdf = std::move(bytes),
            .cortados = std::move(resultado.cortados),
            .celulas = CelulasDeTexto(conteudo),
            .titulo = ParaQt(conteudo.titulo),
            .tituloResumido = conteudo.tituloResumido,
            .icone = conteudo.icone};
}

JanelaVisualizacao::JanelaVisualizacao(ConfiguracoesIni* preferencias)
    : preferencias_(preferencias),
      comandos_(std::make_unique<Comandos>(*this, [this](Comando c) { Executar(c); })),
      vista_(new VistaPaginas(this)) {
    setObjectName(u"visualizacao"_s);
    resize(900, 1000);
    auto* centro = new QWidget(this);
    auto* colunas = new QVBoxLayout(centro);
    colunas->setContentsMargins(0, 0, 0, 0);
    colunas->setSpacing(0);
    colunas->addWidget(vista_, 1);
    setCentralWidget(centro);
    CriarBarraDeFerramentas();
    CriarBarraDeEstado();
    CriarBusca();
    CriarMiniaturas();
    CriarImpressao();
    vista_->aoMudar = [this] { AtualizarEstado(); };
    LerPreferencias();
    vista_->setFocus();
}

JanelaVisualizacao::~JanelaVisualizacao() {
    hide();
    Esvaziar();
}

void JanelaVisualizacao::Mostrar(DocumentoPronto documento) {
    Esvaziar();
    documento_ = std::move(documento);
    pintor_ = std::make_unique<PintorPaginas>(documento_.pdf);
    pintor_->aoPintar = [this](const Recorte&) {
        vista_->viewport()->update();
        miniaturas_->Atualizar();
    };
    busca_ = std::make_unique<BuscaTexto>(pintor_->Documento());
    busca_->aoMudar = [this](bool novoAtual) {
        barraDeBusca_->MostrarSituacao(*busca_, pintor_->Paginas());
        if (novoAtual) {
            const auto marcas = busca_->MarcaAtual();
            vista_->Revelar(busca_->Atual()->pagina,
                            marcas.isEmpty() ? QRectF() : marcas.first().boundingRect());
        }
        vista_->viewport()->update();
    };
    setWindowTitle(documento_.titulo);
    setWindowIcon(IconeDe(documento_.icone));
    campoPagina_->setRange(1, pintor_->Paginas());
    totalPaginas_->setText(u" de %1 "_s.arg(pintor_->Paginas()));
    const auto cortes = documento_.cortados.size();
    situacaoCortes_->setVisible(cortes > 0);
    situacaoCortes_->setText(cortes == 1 ? u"1 texto cortado"_s
                                         : u"%1 textos cortados"_s.arg(cortes));
    miniaturas_->Mostrar(pintor_.get());
    vista_->Mostrar(pintor_.get(), busca_.get(), &documento_.celulas);
    if (barraDeBusca_->isVisibleTo(this)) {
        FecharBusca();
    }
    show();
    raise();
    activateWindow();
}

void JanelaVisualizacao::Esvaziar() {
    vista_->Mostrar(nullptr, nullptr, nullptr);
    miniaturas_->Mostrar(nullptr);
    busca_.reset();
    pintor_.reset();
    documento_ = {};
}

void JanelaVisualizacao::AtualizarEstado() {
    if (pintor_ == nullptr) {
        return;
    }
    const int pagina = vista_->Pagina() + 1;
    const int paginas = pintor_->Paginas();
    situacaoPagina_->setText(u"Página %1 de %2"_s.arg(pagina).arg(paginas));
    const QSignalBlocker silencio(campoPagina_);
    campoPagina_->setValue(pagina);
    miniaturas_->Marcar(pagina - 1);
    const auto& c = *comandos_;
    for (const auto comando : {Comando::Primeira, Comando::Anterior}) {
        c[comando].setEnabled(pagina > 1);
    }
    for (const auto comando : {Comando::Proxima, Comando::Ultima}) {
        c[comando].setEnabled(pagina < paginas);
    }
    const double ampliacao = vista_->Ampliacao();
    c[Comando::Ampliar].setEnabled(ampliacao < VistaPaginas::AmpliacaoMaxima);
    c[Comando::Reduzir].setEnabled(ampliacao > VistaPaginas::AmpliacaoMinima);
    c[Comando::PaginaInteira].setChecked(vista_->AjusteAtual() == Ajuste::PaginaInteira);
    c[Comando::LarguraDaPagina].setChecked(vista_->AjusteAtual() == Ajuste::LarguraDaPagina);
    c[Comando::Continuo].setChecked(vista_->Continuo());
    c[Comando::Copiar].setEnabled(vista_->TemSelecao());
    c[Comando::Imprimir].setEnabled(!impressao_->EmCurso());
    campoAmpliacao_->setEditText(Percentual(ampliacao));
}

void JanelaVisualizacao::Executar(Comando comando) {
    if (pintor_ == nullptr) {
        return;
    }
    switch (comando) {
        case Comando::Imprimir:
            return Imprimir();
        case Comando::Salvar:
            return Salvar();
        case Comando::Fechar:
            close();
            return;
        case Comando::Copiar:
            return QApplication::clipboard()->setText(vista_->TextoSelecionado());
        case Comando::Localizar:
            return AbrirBusca();
        case Comando::LocalizarProximo:
            return barraDeBusca_->isVisible() ? busca_->Avancar() : AbrirBusca();
        case Comando::LocalizarAnterior:
            return barraDeBusca_->isVisible() ? busca_->Recuar() : AbrirBusca();
        case Comando::IrParaPagina:
            campoPagina_->setFocus();
            return campoPagina_->selectAll();
        case Comando::Atalhos:
            return Dizer(QMessageBox::Information, Comandos::ListaDeAtalhos());
        default:
            ExecutarNaVista(comando);
            AtualizarEstado();
    }
}

void JanelaVisualizacao::ExecutarNaVista(Comando comando) {
    switch (comando) {
        case Comando::SelecionarPagina:
            return vista_->SelecionarPagina();
        case Comando::Ampliar:
            return vista_->AmpliarUmPasso(1);
        case Comando::Reduzir:
            return vista_->AmpliarUmPasso(-1);
        case Comando::TamanhoReal:
            return vista_->Ampliar(1.0);
        case Comando::PaginaInteira:
            return vista_->Ajustar(Ajuste::PaginaInteira);
        case Comando::LarguraDaPagina:
            return vista_->Ajustar(Ajuste::LarguraDaPagina);
        case Comando::Continuo:
            return vista_->DefinirContinuo(!vista_->Continuo());
        case Comando::Primeira:
            return vista_->IrPara(0);
        case Comando::Anterior:
            return vista_->IrPara(vista_->Pagina() - 1);
        case Comando::Proxima:
            return vista_->IrPara(vista_->Pagina() + 1);
        case Comando::Ultima:
            return vista_->IrPara(pintor_->Paginas() - 1);
        default:
            return;
    }
}

void JanelaVisualizacao::LerAmpliacao() {
    const QString texto = campoAmpliacao_->currentText();
    if (texto == campoAmpliacao_->itemText(0)) {
        vista_->Ajustar(Ajuste::PaginaInteira);
    } else if (texto == campoAmpliacao_->itemText(1)) {
        vista_->Ajustar(Ajuste::LarguraDaPagina);
    } else {
        bool numero = false;
        const double percentual = QString(texto).remove(u'%').trimmed().toDouble(&numero);
        if (numero) {
            vista_->Ampliar(percentual / 100);
        }
    }
    AtualizarEstado();
    vista_->setFocus();
}

void JanelaVisualizacao::AbrirBusca() {
    barraDeBusca_->Abrir();
    barraDeBusca_->MostrarSituacao(*busca_, pintor_->Paginas());
}

void JanelaVisualizacao::FecharBusca() {
    barraDeBusca_->hide();
    busca_->Procurar({}, 0);
    vista_->setFocus();
}

void JanelaVisualizacao::Imprimir() {
    if (!impressao_->EmCurso()) {
        impressao_->Perguntar({documento_.pdf, documento_.tituloResumido, pintor_->Paginas()});
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
    connect(dialogo, &QFileDialog::fileSelected, this,
            [this](const QString& arquivo) { GravarEm(arquivo); });
    dialogo->open();
}

void JanelaVisualizacao::GravarEm(const QString& arquivo) {
    try {
        GravarArquivo(arquivo.toStdString(), *documento_.pdf);
        statusBar()->showMessage(u"Salvo em %1"_s.arg(arquivo), 5000);
    } catch (const Erro& erro) {
        Dizer(QMessageBox::Warning, TextoDoErro(erro));
    }
}

void JanelaVisualizacao::Dizer(int icone, const QString& texto) {
    auto* caixa = new QMessageBox(static_cast<QMessageBox::Icon>(icone), windowTitle(), texto,
                                  QMessageBox::Ok, this);
    caixa->setAttribute(Qt::WA_DeleteOnClose);
    caixa->open();
}

void JanelaVisualizacao::MostrarCortados() {
    auto* dialogo = new QDialog(this);
    dialogo->setAttribute(Qt::WA_DeleteOnClose);
    dialogo->setWindowTitle(u"Textos que não couberam inteiros"_s);
    dialogo->resize(600, 300);
    auto* tabela = new QTableWidget(static_cast<int>(documento_.cortados.size()), 2, dialogo);
    tabela->setHorizontalHeaderLabels({u"Página"_s, u"Texto inteiro"_s});
    tabela->horizontalHeader()->setStretchLastSection(true);
    tabela->verticalHeader()->hide();
    tabela->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tabela->setSelectionBehavior(QAbstractItemView::SelectRows);
    for (int i = 0; i < tabela->rowCount(); ++i) {
        const auto& corte = documento_.cortados[static_cast<std::size_t>(i)];
        tabela->setItem(i, 0, new QTableWidgetItem(QString::number(corte.pagina)));
        tabela->setItem(i, 1, new QTableWidgetItem(ParaQt(corte.texto)));
    }
    connect(tabela, &QTableWidget::itemSelectionChanged, this, [this, tabela] {
        vista_->IrPara(tabela->item(tabela->currentRow(), 0)->text().toInt() - 1);
    });
    auto* colunas = new QVBoxLayout(dialogo);
    colunas->addWidget(tabela);
    dialogo->show();
}

// --- the user's preferences

void JanelaVisualizacao::LerPreferencias() {
    if (preferencias_ == nullptr) {
        return;
    }
    const auto preferidas = PreferenciasDaVista::Ler(*preferencias_);
    restoreGeometry(preferidas.geometria);
    vista_->DefinirContinuo(preferidas.continuo);
    if (preferidas.ajuste == Ajuste::Livre) {
        vista_->Ampliar(preferidas.ampliacao);
    } else {
        vista_->Ajustar(preferidas.ajuste);
    }
    (*comandos_)[Comando::Miniaturas].setChecked(preferidas.miniaturas);
}

void JanelaVisualizacao::GuardarPreferencias() {
    if (preferencias_ == nullptr) {
        return;
    }
    PreferenciasDaVista{.geometria = saveGeometry(),
                        .ajuste = vista_->AjusteAtual(),
                        .ampliacao = vista_->Ampliacao(),
                        .continuo = vista_->Continuo(),
                        .miniaturas = (*comandos_)[Comando::Miniaturas].isChecked()}
        .Gravar(*preferencias_);
}

void JanelaVisualizacao::showEvent(QShowEvent* evento) {
    if (!evento->spontaneous()) {
        Afastar();
    }
    QMainWindow::showEvent(evento);
}

void JanelaVisualizacao::hideEvent(QHideEvent* evento) {
    QMainWindow::hideEvent(evento);
    if (!evento->spontaneous()) {
        GuardarPreferencias();
        Esvaziar();
    }
}

void JanelaVisualizacao::Afastar() {
    const auto janelas = QApplication::topLevelWidgets();
    const auto outraNoLugar = [&] {
        return std::any_of(janelas.begin(), janelas.end(), [this](const QWidget* outra) {
            return outra != this && outra->isVisible() &&
                   outra->geometry().topLeft() == geometry().topLeft() &&
                   outra->objectName() == objectName();
        });
    };
    while (outraNoLugar()) {
        move(pos() + QPoint(28, 28));
    }
}

}  // namespace tarvo
