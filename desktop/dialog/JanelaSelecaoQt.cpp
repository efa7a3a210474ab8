// SPDX-License-Identifier: MIT
#include "desktop/dialog/JanelaSelecaoQt.h"

#include <QApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include "desktop/ApoioQt.h"
#include "desktop/Ligacao.h"
#include "document/Imagens.h"

namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

QFont Negrito(const QStringList& familias, double pontos) {
    QFont fonte(familias);
    fonte.setPointSizeF(pontos);
    fonte.setBold(true);
    return fonte;
}

// Draws each entry with a check mark that says whether it is selected, so that selection does not
// rest on a colour alone.
class EntradaMarcada final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& opcao,
                                 const QModelIndex& indice) const override {
        constexpr QSize Folga(0, 4);
        return QStyledItemDelegate::sizeHint(opcao, indice) + Folga;
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* opcao, const QModelIndex& indice) const override {
        QStyledItemDelegate::initStyleOption(opcao, indice);
        const auto* lista = static_cast<const QListView*>(parent());
        opcao->features |= QStyleOptionViewItem::HasCheckIndicator;
        opcao->checkState =
            lista->selectionModel()->isSelected(indice) ? Qt::Checked : Qt::Unchecked;
    }
};

// A list in which typing moves the focus and marks nothing.
class Lista final : public QListWidget {
  public:
    using QListWidget::QListWidget;

  protected:
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& indice, const QEvent* evento) const override {
        return evento == nullptr ? QItemSelectionModel::NoUpdate
                                 : QListWidget::selectionCommand(indice, evento);
    }
};

// The list widget and the dialog's list hold the same marks: each is brought up to the other after
// whichever changed.
class Janela final : public QDialog {
  public:
    Janela(frmImpressaoRelatorios& dialogo, QWidget* pai);

  private:
    void CriarLista();
    QPushButton* CriarBotao(const QString& nome, const QString& rotulo,
                            const std::function<void()>& acao);
    void MostrarMarcas();
    void LerMarcas();

    frmImpressaoRelatorios& dialogo_;
    QListWidget* lista_ = new Lista(this);
};

Janela::Janela(frmImpressaoRelatorios& dialogo, QWidget* pai) : QDialog(pai), dialogo_(dialogo) {
    setObjectName(u"frmImpressaoRelatorios"_s);
    setWindowTitle(u"Impressão de Relatórios"_s);
    setWindowIcon(IconeDe(&frmFiguras::imgIconeR));
    setSizeGripEnabled(true);

    auto* rotulo = new QLabel(u"Seleção de &Relatórios"_s, this);
    rotulo->setFont(Negrito({u"MS Sans Serif"_s, u"Liberation Sans"_s}, 8.25));
    rotulo->setObjectName(u"Label1"_s);
    rotulo->setBuddy(lista_);
    CriarLista();
    auto* visualizar = CriarBotao(u"cmdVisualizar"_s, u"&Visualizar Relatórios Selecionados"_s,
                                  [this] { dialogo_.cmdVisualizar(); });
    visualizar->setDefault(true);
    auto* imprimir = CriarBotao(u"cmdImprimir"_s, u"&Imprimir Relatórios Selecionados"_s,
                                [this] { dialogo_.cmdImprimir(); });
    auto* todos = CriarBotao(u"cmdSelecionarTodos"_s, u"&Selecionar / Limpar Todos os Relatórios"_s,
                             [this] { dialogo_.cmdSelecionarTodos(); });

    auto* botoes = new QHBoxLayout;
    botoes->addWidget(visualizar);
    botoes->addWidget(imprimir);
    botoes->addWidget(todos);
    auto* declaracao = new QLabel(ParaQt(dialogo.declaracao), this);
    declaracao->setObjectName(u"declaracao"_s);
    declaracao->setTextFormat(Qt::PlainText);
    declaracao->setWordWrap(true);
    declaracao->setVisible(!dialogo.declaracao.empty());
    auto* colunas = new QVBoxLayout(this);
    colunas->addWidget(declaracao);
    colunas->addWidget(rotulo);
    colunas->addWidget(lista_, 1);
    colunas->addLayout(botoes);

    // High enough for all entries where the screen allows it.
    const int todas = lista_->sizeHintForRow(0) * (lista_->count() + 1);
    const QSize inteira = sizeHint() + QSize(0, todas - lista_->sizeHint().height());
    // As much as a window manager may put around it stays free.
    resize(inteira.boundedTo(screen()->availableSize() - QSize(8, 36)));

    MostrarMarcas();
    lista_->setCurrentRow(static_cast<int>(dialogo_.lstSelecao.Foco()),
                          QItemSelectionModel::NoUpdate);
    lista_->setFocus();
    Ligar(lista_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { LerMarcas(); });
    Ligar(lista_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& atual) {
              dialogo_.lstSelecao.Focar(static_cast<std::size_t>(atual.row()));
          });
}

void Janela::CriarLista() {
    lista_->setObjectName(u"lstSelecao"_s);
    lista_->setAccessibleName(u"Seleção de Relatórios"_s);
    lista_->setFont(Negrito({u"MS Sans Serif"_s, u"Liberation Sans"_s}, 8.25));
    lista_->setSelectionMode(QAbstractItemView::MultiSelection);
    lista_->setItemDelegate(new EntradaMarcada(lista_));
    for (std::size_t i = 0; i < dialogo_.lstSelecao.Quantidade(); ++i) {
        lista_->addItem(ParaQt(dialogo_.lstSelecao.Rotulo(i)));
    }
    const int rolagem = lista_->verticalScrollBar()->sizeHint().width();
    lista_->setMinimumWidth(lista_->sizeHintForColumn(0) + rolagem + 2 * lista_->frameWidth());
    lista_->setMinimumHeight(lista_->sizeHintForRow(0) * 4);
}

QPushButton* Janela::CriarBotao(const QString& nome, const QString& rotulo,
                                const std::function<void()>& acao) {
    auto* botao = new QPushButton(rotulo, this);
    botao->setObjectName(nome);
    botao->setFont(Negrito({u"Arial"_s, u"Liberation Sans"_s}, 9));
    Ligar(botao, &QPushButton::clicked, this, [this, acao] {
        acao();
        MostrarMarcas();
        if (!dialogo_.Visivel()) {
            accept();
        }
    });
    return botao;
}

void Janela::MostrarMarcas() {
    QItemSelection marcas;
    for (int i = 0; i < lista_->count(); ++i) {
        if (dialogo_.lstSelecao.Selecionada(static_cast<std::size_t>(i))) {
            const auto entrada = lista_->model()->index(i, 0);
            marcas.select(entrada, entrada);
        }
    }
    lista_->selectionModel()->select(marcas, QItemSelectionModel::ClearAndSelect);
}

void Janela::LerMarcas() {
    for (int i = 0; i < lista_->count(); ++i) {
        dialogo_.lstSelecao.Selecionar(static_cast<std::size_t>(i), lista_->item(i)->isSelected());
    }
}

}  // namespace

void JanelaSelecaoQt::ExibirModal(frmImpressaoRelatorios& dialogo) {
    if (aoExibir) {
        aoExibir(dialogo);
    }
    Janela janela(dialogo, pai_ != nullptr ? pai_.data() : QApplication::activeWindow());
    janela.exec();
}

void JanelaSelecaoQt::Descarregar() noexcept {
    if (aoDescarregar) {
        Proteger(pai_, aoDescarregar);
    }
}

}  // namespace tarvo
