// SPDX-License-Identifier: MIT
#include "host/windows/ListaDeclaracoes.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/Ligacao.h"

namespace tarvo::host {

using namespace Qt::StringLiterals;

namespace {

constexpr int LarguraMaxima = 180;  // of a column but the name's; the tool tip shows what is cut
constexpr int LarguraDoNome = 220;  // as long as the regime can give way
constexpr int LarguraMinima = 80;

}  // namespace

ListaDeclaracoes::ListaDeclaracoes(QWidget* pai, QAction& relatorios, QAction& abrirBanco)
    : QWidget(pai),
      filtradas_(modelo_),
      relatorios_(relatorios),
      campoBusca_(new QLineEdit(this)),
      tabela_(new QTableView(this)),
      pilha_(new QStackedWidget(this)) {
    campoBusca_->setObjectName(u"campoBusca"_s);
    campoBusca_->setPlaceholderText(u"Localizar por nome, inscrição, CNPJ, número ou referência"_s);
    campoBusca_->setAccessibleName(u"Localizar contribuinte ou declaração"_s);
    campoBusca_->setClearButtonEnabled(true);
    campoBusca_->installEventFilter(this);
    Ligar(campoBusca_, &QLineEdit::textChanged, this, [this](const QString& texto) {
        filtradas_.Procurar(texto);
        EscolherPrimeira();
    });
    auto* botao = new QPushButton(relatorios.text(), this);
    botao->setObjectName(u"botaoRelatorios"_s);
    botao->setToolTip(u"Visualizar ou imprimir relatórios da declaração escolhida (Enter)"_s);
    Ligar(botao, &QPushButton::clicked, this, [&relatorios] { relatorios.trigger(); });
    Ligar(&relatorios, &QAction::changed, botao,
          [&relatorios, botao] { botao->setEnabled(relatorios.isEnabled()); });
    CriarTabela();
    pilha_->addWidget(tabela_);
    pilha_->addWidget(CriarVazio(abrirBanco));
    auto* cabeca = new QHBoxLayout;
    cabeca->addWidget(campoBusca_, 1);
    cabeca->addWidget(botao);
    auto* colunas = new QVBoxLayout(this);
    colunas->addLayout(cabeca);
    colunas->addWidget(pilha_, 1);
    MostrarSeHaLinhas();
}

void ListaDeclaracoes::CriarTabela() {
    tabela_->setObjectName(u"declaracoes"_s);
    tabela_->setAccessibleName(u"Contribuintes e declarações"_s);
    tabela_->setModel(&filtradas_);
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
    tabela_->horizontalHeader()->setSectionResizeMode(ModeloDeclaracoes::RazaoSocial,
                                                      QHeaderView::Stretch);
    tabela_->installEventFilter(this);
    Ligar(tabela_, &QTableView::doubleClicked, this, [this] { relatorios_.trigger(); });
    Ligar(tabela_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this] { aoMudar(); });
}

QWidget* ListaDeclaracoes::CriarVazio(QAction& abrirBanco) {
    auto* folha = new QWidget(this);
    vazio_ = new QLabel(folha);
    vazio_->setObjectName(u"vazio"_s);
    vazio_->setAlignment(Qt::AlignCenter);
    vazio_->setTextFormat(Qt::PlainText);
    vazio_->setWordWrap(true);
    botaoAbrir_ = new QPushButton(abrirBanco.text(), folha);
    Ligar(botaoAbrir_, &QPushButton::clicked, this, [&abrirBanco] { abrirBanco.trigger(); });
    auto* colunas = new QVBoxLayout(folha);
    colunas->addStretch();
    colunas->addWidget(vazio_);
    colunas->addWidget(botaoAbrir_, 0, Qt::AlignHCenter);
    colunas->addStretch();
    return folha;
}

void ListaDeclaracoes::Ler(BancoDados& banco) {
    modelo_.Ler(banco);
    lida_ = true;
    tabela_->resizeColumnsToContents();
    for (int coluna = 0; coluna < ModeloDeclaracoes::Colunas; ++coluna) {
        tabela_->setColumnWidth(coluna, std::min(tabela_->columnWidth(coluna), LarguraMaxima));
    }
    campoBusca_->clear();
    EscolherPrimeira();
    RepartirLargura();
    tabela_->setFocus();
}

// The name takes the room that the others leave; where they leave too little, the regime gives way.
void ListaDeclaracoes::RepartirLargura() {
    const int falta = LarguraDoNome - tabela_->columnWidth(ModeloDeclaracoes::RazaoSocial);
    const int regime = tabela_->columnWidth(ModeloDeclaracoes::Regime);
    if (falta > 0 && regime > LarguraMinima) {
        tabela_->setColumnWidth(ModeloDeclaracoes::Regime, std::max(LarguraMinima, regime - falta));
    }
}

void ListaDeclaracoes::resizeEvent(QResizeEvent* evento) {
    QWidget::resizeEvent(evento);
    RepartirLargura();
}

void ListaDeclaracoes::EscolherPrimeira() {
    tabela_->selectRow(0);
    tabela_->scrollToTop();
    MostrarSeHaLinhas();
    aoMudar ? aoMudar() : void();
}

void ListaDeclaracoes::MostrarSeHaLinhas() {
    const bool nadaAchado = lida_ && modelo_.rowCount() > 0;
    vazio_->setText(nadaAchado ? u"Nada encontrado para \"%1\".\nEsc na busca mostra todas."_s.arg(
                                     campoBusca_->text())
                    : lida_ ? u"Este banco não tem contribuintes nem declarações."_s
                            : u"Nenhum banco de declarações aberto.\nAbra um, ou solte o arquivo "
                              "dele aqui."_s);
    botaoAbrir_->setVisible(!nadaAchado);
    campoBusca_->setEnabled(lida_);
    pilha_->setCurrentIndex(filtradas_.rowCount() > 0 ? 0 : 1);
}

void ListaDeclaracoes::Localizar() {
    campoBusca_->setFocus();
    campoBusca_->selectAll();
}

std::optional<ModeloDeclaracoes::Linha> ListaDeclaracoes::Escolhida() const {
    const auto indice = tabela_->currentIndex();
    return indice.isValid() ? std::optional(filtradas_.Em(indice)) : std::nullopt;
}

LugarNaLista ListaDeclaracoes::Lugar() const {
    const auto linha = Escolhida().value_or(ModeloDeclaracoes::Linha());
    return {campoBusca_->text(), linha.IE, linha.NroDRQ};
}

int ListaDeclaracoes::LinhaDe(const std::string& IE, std::optional<std::int32_t> NroDRQ) const {
    for (int i = 0; i < filtradas_.rowCount(); ++i) {
        const auto& linha = filtradas_.Em(filtradas_.index(i, 0));
        // A declaration of nobody is found by its number alone.
        if (linha.NroDRQ == NroDRQ && (linha.IE == IE || linha.IE.empty())) {
            return i;
        }
    }
    return -1;
}

void ListaDeclaracoes::Ir(const LugarNaLista& lugar) {
    campoBusca_->setText(lugar.filtro);
    if (const int linha = LinhaDe(lugar.IE, lugar.NroDRQ); linha >= 0) {
        tabela_->selectRow(linha);
    }
}

std::optional<ModeloDeclaracoes::Linha> ListaDeclaracoes::IrAVizinha(const std::string& IE,
                                                                     std::int32_t NroDRQ,
                                                                     int sentido) {
    int linha = LinhaDe(IE, NroDRQ);
    if (linha < 0) {
        return std::nullopt;
    }
    do {
        linha += sentido;
        if (linha < 0 || linha >= filtradas_.rowCount()) {
            return std::nullopt;
        }
    } while (!filtradas_.Em(filtradas_.index(linha, 0)).NroDRQ);
    tabela_->selectRow(linha);
    return Escolhida();
}

QString ListaDeclaracoes::Situacao() const {
    const auto declaracoes = [](const auto& modelo, auto em) {
        int quantas = 0;
        for (int i = 0; i < modelo.rowCount(); ++i) {
            quantas += em(i).NroDRQ.has_value() ? 1 : 0;
        }
        return quantas;
    };
    const int todas = declaracoes(
        modelo_, [this](int i) -> const auto& { return modelo_.Em(i); });
    const int mostradas = declaracoes(
        filtradas_, [this](int i) -> const auto& { return filtradas_.Em(filtradas_.index(i, 0)); });
    const auto palavra = todas == 1 ? u"declaração"_s : u"declarações"_s;
    return mostradas == todas ? u"%L1 %2"_s.arg(todas).arg(palavra)
                              : u"%L1 de %L2 %3"_s.arg(mostradas).arg(todas).arg(palavra);
}

bool ListaDeclaracoes::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress) {
        const int tecla = static_cast<QKeyEvent*>(evento)->key();
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            relatorios_.trigger();
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
