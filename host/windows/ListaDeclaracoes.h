// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "host/windows/ModeloDeclaracoes.h"

class QAction;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QTableView;

namespace tarvo::host {

// Where the user is in the list.
struct LugarNaLista {
    QString filtro;
    std::string IE;
    std::optional<std::int32_t> NroDRQ;
};

// The list of declarations with the field that searches it. What is chosen is always in sight;
// where nothing can be listed it says what to do.
class ListaDeclaracoes final : public QWidget {
  public:
    // relatorios opens what is chosen and stands beside the search field too; abrirBanco is offered
    // while there is no database.
    ListaDeclaracoes(QWidget* pai, QAction& relatorios, QAction& abrirBanco);

    // Shows the declarations of another database. Errors of the database leave the list as it was.
    void Ler(BancoDados& banco);
    // Puts the focus into the search field.
    void Localizar();
    // The row that is chosen.
    [[nodiscard]] std::optional<ModeloDeclaracoes::Linha> Escolhida() const;
    [[nodiscard]] LugarNaLista Lugar() const;
    // As near as the list has it.
    void Ir(const LugarNaLista& lugar);
    // Goes to the declaration that many rows behind (or, negative, before) that one, taxpayers
    // without one left out; nothing when the list ends there.
    std::optional<ModeloDeclaracoes::Linha> IrAVizinha(const std::string& IE, std::int32_t NroDRQ,
                                                       int sentido);
    // "12 declarações", "3 de 12 declarações"
    [[nodiscard]] QString Situacao() const;

    // To be set before the list is used: other rows are shown, or another one is chosen.
    std::function<void()> aoMudar;

  protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

  private:
    void CriarTabela();
    QWidget* CriarVazio(QAction& abrirBanco);
    void EscolherPrimeira();
    void MostrarSeHaLinhas();
    void RepartirLargura();
    [[nodiscard]] int LinhaDe(const std::string& IE, std::optional<std::int32_t> NroDRQ) const;

    ModeloDeclaracoes modelo_;
    DeclaracoesFiltradas filtradas_;
    QAction& relatorios_;
    bool lida_ = false;  // a database is open
    QLineEdit* campoBusca_;
    QTableView* tabela_;
    QStackedWidget* pilha_;
    QLabel* vazio_;
    QPushButton* botaoAbrir_;
};

}  // namespace tarvo::host
