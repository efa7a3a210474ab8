// SPDX-License-Identifier: MIT
#include "host/windows/ListaDeclaracoes.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/ApoioQt.h"
#include "desktop/Ligacao.h"
#include "host/windows/Explicacao.h"
#include "host/windows/Recado.h"

namespace tarvo::host {

using namespace Qt::StringLiterals;

namespace {

constexpr int LarguraMaxima = 180;  // of a column but the name's; the tool tip shows what is cut
constexpr int LarguraDoNome = 160;  // at least
constexpr int LarguraMinima = 80;
constexpr auto Paciencia = std::chrono::milliseconds(400);  // before waiting is talked of

}  // namespace

ListaDeclaracoes::ListaDeclaracoes(QWidget* pai, QAction& relatorios, QAction& abrirBanco)
    : QWidget(pai),
      relatorios_(relatorios),
      abrirBanco_(abrirBanco),
      campoBusca_(new QLineEdit(this)),
      tabela_(new QTableView(this)),
      recado_(new Recado(this)),
      pilha_(new QStackedWidget(this)) {
    campoBusca_->setObjectName(u"campoBusca"_s);
    campoBusca_->setPlaceholderText(u"Localizar por nome, inscrição, CNPJ, número ou referência"_s);
    campoBusca_->setAccessibleName(u"Localizar contribuinte ou declaração"_s);
    campoBusca_->setClearButtonEnabled(true);
    campoBusca_->installEventFilter(this);
    Ligar(campoBusca_, &QLineEdit::textChanged, this,
          [this](const QString& texto) { Procurar(texto); });
    modelo_.aoPerguntar = [this] { espera_.start(Paciencia); };
    modelo_.aoAchar = [this] { MostrarAchadas(); };
    modelo_.aoLer = [this] { MedirColunas(); };
    modelo_.aoFalhar = [this](const Erro& erro) { MostrarFalha(erro); };
    Ligar(&espera_, &QTimer::timeout, this, [this] { MostrarEspera(); });
    auto* botao = new QPushButton(relatorios.text(), this);
    botao->setObjectName(u"botaoRelatorios"_s);
    botao->setToolTip(u"Visualizar ou imprimir relatórios da declaração escolhida (Enter)"_s);
    Ligar(botao, &QPushButton::clicked, this, [&relatorios] { relatorios.trigger(); });
    Ligar(&relatorios, &QAction::changed, botao,
          [&relatorios, botao] { botao->setEnabled(relatorios.isEnabled()); });
    CriarTabela();
    pilha_->addWidget(tabela_);
    pilha_->addWidget(recado_);
    auto* cabeca = new QHBoxLayout;
    cabeca->addWidget(campoBusca_, 1);
    cabeca->addWidget(botao);
    auto* colunas = new QVBoxLayout(this);
    colunas->addLayout(cabeca);
    colunas->addWidget(pilha_, 1);
    MostrarAchadas();
}

void ListaDeclaracoes::CriarTabela() {
    tabela_->setObjectName(u"declaracoes"_s);
    tabela_->setAccessibleName(u"Contribuintes e declarações"_s);
    tabela_->setModel(&modelo_);
    tabela_->setSortingEnabled(true);
    tabela_->sortByColumn(ModeloDeclaracoes::RazaoSocial, Qt::AscendingOrder);
    tabela_->setSelectionBehavior(QAbstractItemView::SelectRows);
    tabela_->setSelectionMode(QAbstractItemView::SingleSelection);
    tabela_->setTabKeyNavigation(false);
    tabela_->setAlternatingRowColors(true);
    tabela_->setShowGrid(false);
    tabela_->setContextMenuPolicy(Qt::ActionsContextMenu);
    tabela_->verticalHeader()->hide();
    tabela_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    tabela_->horizontalHeader()->setHighlightSections(false);
    tabela_->horizontalHeader()->setResizeContentsPrecision(0);  // by the rows in sight
    tabela_->installEventFilter(this);
    Ligar(tabela_, &QTableView::doubleClicked, this, [this] { relatorios_.trigger(); });
    Ligar(tabela_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& indice) {
              if (indice.isValid()) {
                  atual_ = modelo_.Em(indice.row());
              }
              aoMudar();
          });
}

void ListaDeclaracoes::DizerNoLugarDaLista(const QString& texto, const QString& acao,
                                           std::function<void()> fazer) {
    recado_->Dizer(texto, acao, std::move(fazer));
    pilha_->setCurrentWidget(recado_);
}

void ListaDeclaracoes::Ler(std::shared_ptr<FonteDaLista> fonte, const LugarNaLista& lugar) {
    lida_ = true;
    porMedir_ = true;
    campoBusca_->setEnabled(true);
    atual_ = {};
    const QSignalBlocker calado(campoBusca_);
    campoBusca_->setText(lugar.filtro);
    modelo_.Abrir(std::move(fonte));
    DizerNoLugarDaLista({});
    texto_ = lugar.filtro;
    ir_ = {lugar.IE, lugar.NroDRQ};
    modelo_.Procurar(lugar.filtro);
    tabela_->setFocus();
}

void ListaDeclaracoes::Procurar(const QString& texto) {
    abrirAoAchar_ = false;
    ir_.reset();
    modelo_.Procurar(texto);
}

// The first row, unless there is one to go to; the rows of the same search in another order stay
// where they were.
void ListaDeclaracoes::MostrarAchadas() {
    esperando_ = false;
    const bool mesmas = std::exchange(texto_, modelo_.Texto()) == modelo_.Texto();
    if (modelo_.rowCount() > 0) {
        const auto ir = std::exchange(ir_, std::nullopt);
        const int linha = ir || mesmas ? LinhaDe(ir.value_or(atual_)) : 0;
        tabela_->selectRow(std::max(linha, 0));
        linha > 0 ? tabela_->scrollTo(tabela_->currentIndex()) : tabela_->scrollToTop();
        pilha_->setCurrentWidget(tabela_);
    } else if (lida_ && !texto_.isEmpty()) {
        DizerNoLugarDaLista(
            u"Nada encontrado para \"%1\".\nEsc na busca mostra todas."_s.arg(texto_));
    } else {
        DizerNoLugarDaLista(lida_ ? u"Este banco não tem contribuintes nem declarações."_s
                                  : u"Nenhum banco de declarações aberto.\nAbra um, ou solte o "
                                    "arquivo dele aqui."_s,
                            abrirBanco_.text(), [this] { abrirBanco_.trigger(); });
    }
    campoBusca_->setEnabled(lida_);
    aoMudar ? aoMudar() : void();
    if (std::exchange(abrirAoAchar_, false)) {
        QTimer::singleShot(0, &relatorios_, &QAction::trigger);
    }
}

// As long as it lasts, what is waited for.
void ListaDeclaracoes::MostrarEspera() {
    const auto espera = std::chrono::duration_cast<std::chrono::seconds>(modelo_.Espera());
    if (!modelo_.Ocupado()) {
        espera_.stop();
    } else if (espera.count() > 0 || modelo_.Procurando()) {
        esperando_ = true;
        DizerNoLugarDaLista(
            espera.count() > 0
                ? u"O servidor não responde; aguardando que volte, há %1 s…"_s.arg(espera.count())
                : u"Procurando no servidor…"_s,
            u"&Cancelar"_s, [this] { Desistir(); });
        aoMudar();
    }
}

void ListaDeclaracoes::MostrarFalha(const Erro& erro) {
    esperando_ = false;
    abrirAoAchar_ = false;
    const Erro explicado = Explicar(erro, {});
    DizerNoLugarDaLista(
        u"A lista não pôde ser lida.\n\nerro %1: %2"_s.arg(static_cast<int>(explicado.Numero()))
            .arg(ParaQt(explicado.Descricao())),
        u"&Ler de novo"_s, [this] { modelo_.Repetir(); });
    aoMudar();
}

// The rows that are shown stay, with what was searched for them.
void ListaDeclaracoes::Desistir() {
    esperando_ = false;
    abrirAoAchar_ = false;
    modelo_.Desistir();
    const QSignalBlocker calado(campoBusca_);
    campoBusca_->setText(modelo_.Texto());
    if (modelo_.rowCount() > 0) {
        pilha_->setCurrentWidget(tabela_);
    } else {
        DizerNoLugarDaLista(u"A leitura da lista foi cancelada."_s, u"&Ler de novo"_s,
                            [this] { modelo_.Repetir(); });
    }
    aoMudar();
}

void ListaDeclaracoes::MedirColunas() {
    if (!std::exchange(porMedir_, false)) {
        return;
    }
    for (int coluna = 0; coluna < ModeloDeclaracoes::Colunas; ++coluna) {
        if (coluna != ModeloDeclaracoes::RazaoSocial) {
            tabela_->resizeColumnToContents(coluna);
            tabela_->setColumnWidth(coluna, std::min(tabela_->columnWidth(coluna), LarguraMaxima));
        }
    }
    RepartirLargura();
}

// The name takes the room that the others leave. Where they leave too little for a name, the regime
// gives way; where that does not suffice either, the last columns are reached by scrolling.
void ListaDeclaracoes::RepartirLargura() {
    auto& titulos = *tabela_->horizontalHeader();
    const int nome = ModeloDeclaracoes::RazaoSocial;
    const auto falta = [&] {
        const int outras = titulos.length() - titulos.sectionSize(nome);
        return LarguraDoNome + outras - tabela_->viewport()->width();
    };
    const int regime = tabela_->columnWidth(ModeloDeclaracoes::Regime);
    if (falta() > 0 && regime > LarguraMinima) {
        tabela_->setColumnWidth(ModeloDeclaracoes::Regime,
                                std::max(LarguraMinima, regime - falta()));
    }
    const bool cabe = falta() <= 0;
    titulos.setSectionResizeMode(nome, cabe ? QHeaderView::Stretch : QHeaderView::Interactive);
    if (!cabe) {
        tabela_->setColumnWidth(nome, LarguraDoNome);
    }
}

void ListaDeclaracoes::resizeEvent(QResizeEvent* evento) {
    QWidget::resizeEvent(evento);
    RepartirLargura();
}

void ListaDeclaracoes::Localizar() {
    campoBusca_->setFocus();
    campoBusca_->selectAll();
}

std::optional<ChaveDaLista> ListaDeclaracoes::Escolhida() const {
    const auto indice = tabela_->currentIndex();
    return indice.isValid() && !modelo_.Procurando() ? std::optional(modelo_.Em(indice.row()))
                                                     : std::nullopt;
}

LugarNaLista ListaDeclaracoes::Lugar() const {
    const ChaveDaLista lugar = ir_.value_or(atual_);
    return {campoBusca_->text(), lugar.IE, lugar.NroDRQ};
}

int ListaDeclaracoes::LinhaDe(const ChaveDaLista& procurada) const {
    for (int i = 0; i < modelo_.rowCount(); ++i) {
        const ChaveDaLista& chave = modelo_.Em(i);
        // A declaration of nobody is found by its number alone.
        if (chave.NroDRQ == procurada.NroDRQ && (chave.IE == procurada.IE || chave.IE.empty())) {
            return i;
        }
    }
    return -1;
}

std::optional<ChaveDaLista> ListaDeclaracoes::IrAVizinha(const std::string& IE, std::int32_t NroDRQ,
                                                         int sentido) {
    int linha = LinhaDe({IE, NroDRQ});
    if (linha < 0) {
        return std::nullopt;
    }
    do {
        linha += sentido;
        if (linha < 0 || linha >= modelo_.rowCount()) {
            return std::nullopt;
        }
    } while (!modelo_.Em(linha).NroDRQ);
    tabela_->selectRow(linha);
    return modelo_.Em(linha);
}

QString ListaDeclaracoes::Situacao() const {
    if (esperando_ || (modelo_.Procurando() && modelo_.rowCount() == 0)) {
        return u"Procurando…"_s;
    }
    const auto todas = modelo_.Todas();
    const auto palavra = todas == 1 ? u"declaração"_s : u"declarações"_s;
    const auto mostradas = modelo_.Mostradas();
    if (modelo_.HaMais()) {
        return u"as primeiras %L1 que há, de %L2 %3; a busca mostra outras"_s.arg(mostradas)
            .arg(todas)
            .arg(palavra);
    }
    return mostradas == todas ? u"%L1 %2"_s.arg(todas).arg(palavra)
                              : u"%L1 de %L2 %3"_s.arg(mostradas).arg(todas).arg(palavra);
}

bool ListaDeclaracoes::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress) {
        const int tecla = static_cast<QKeyEvent*>(evento)->key();
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            abrirAoAchar_ = modelo_.Procurando();
            relatorios_.trigger();  // not enabled before the answer is there
            return true;
        }
        if (objeto == campoBusca_ && (tecla == Qt::Key_Down || tecla == Qt::Key_Up)) {
            QApplication::sendEvent(tabela_, evento);
            return true;
        }
        if (objeto == campoBusca_ && tecla == Qt::Key_Escape) {
            campoBusca_->clear();
            return true;
        }
    }
    return QWidget::eventFilter(objeto, evento);
}

}  // namespace tarvo::host
