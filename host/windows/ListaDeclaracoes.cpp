#include "host/windows/ListaDeclaracoes.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/Ligacao.h"

namespace tarvo::host {

using namespace Qt::StringLiterals;

namespace {

constexpr int LarguraMaxima = 340;  // of a column; the tool tip shows what is cut

}  // namespace

ListaDeclaracoes::ListaDeclaracoes(QWidget* pai)
    : QWidget(pai),
      filtradas_(modelo_),
      campoBusca_(new QLineEdit(this)),
      tabela_(new QTableView(this)) {
    campoBusca_->setObjectName(u"campoBusca"_s);
    campoBusca_->setPlaceholderText(u"Localizar por nome, inscrição, CNPJ, número ou referência"_s);
    campoBusca_->setAccessibleName(u"Localizar contribuinte ou declaração"_s);
    campoBusca_->setClearButtonEnabled(true);
    campoBusca_->installEventFilter(this);
    Ligar(campoBusca_, &QLineEdit::textChanged, this, [this](const QString& texto) {
        filtradas_.Procurar(texto);
        EscolherPrimeira();
    });
    CriarTabela();
    auto* colunas = new QVBoxLayout(this);
    colunas->addWidget(campoBusca_);
    colunas->addWidget(tabela_, 1);
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
    tabela_->verticalHeader()->hide();
    tabela_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    tabela_->horizontalHeader()->setStretchLastSection(true);
    tabela_->horizontalHeader()->setHighlightSections(false);
    tabela_->installEventFilter(this);
    Ligar(tabela_, &QTableView::doubleClicked, this, [this] { aoAbrir(); });
}

void ListaDeclaracoes::Ler(BancoDados& banco) {
    modelo_.Ler(banco);
    tabela_->resizeColumnsToContents();
    for (int coluna = 0; coluna < ModeloDeclaracoes::Colunas; ++coluna) {
        tabela_->setColumnWidth(coluna, std::min(tabela_->columnWidth(coluna), LarguraMaxima));
    }
    campoBusca_->clear();
    EscolherPrimeira();
    tabela_->setFocus();
}

void ListaDeclaracoes::EscolherPrimeira() {
    tabela_->selectRow(0);
    tabela_->scrollToTop();
    aoMudar();
}

void ListaDeclaracoes::Localizar() {
    campoBusca_->setFocus();
    campoBusca_->selectAll();
}

std::optional<ModeloDeclaracoes::Linha> ListaDeclaracoes::Escolhida() const {
    const auto indice = tabela_->currentIndex();
    return indice.isValid() ? std::optional(filtradas_.Em(indice)) : std::nullopt;
}

QString ListaDeclaracoes::Situacao() const {
    const int mostradas = filtradas_.rowCount();
    const int todas = modelo_.rowCount();
    return mostradas == todas ? u"%L1 linhas"_s.arg(todas)
                              : u"%L1 de %L2 linhas"_s.arg(mostradas).arg(todas);
}

bool ListaDeclaracoes::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress) {
        const int tecla = static_cast<QKeyEvent*>(evento)->key();
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            Proteger(this, [this] { aoAbrir(); });
            return true;
        }
        if (objeto == campoBusca_ && (tecla == Qt::Key_Down || tecla == Qt::Key_Up)) {
            QApplication::sendEvent(tabela_, evento);
            return true;
        }
    }
    return QWidget::eventFilter(objeto, evento);
}

}  // namespace tarvo::host
