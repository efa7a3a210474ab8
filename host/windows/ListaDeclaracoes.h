#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "host/windows/ModeloDeclaracoes.h"

class QLineEdit;
class QTableView;

namespace tarvo::host {

// The list of declarations with the field that searches it. What is chosen is always in sight.
class ListaDeclaracoes final : public QWidget {
  public:
    explicit ListaDeclaracoes(QWidget* pai);

    // Shows the declarations of another database. Errors of the database leave the list as it was.
    void Ler(BancoDados& banco);
    // Puts the focus into the search field.
    void Localizar();
    // The row that is chosen.
    [[nodiscard]] std::optional<ModeloDeclaracoes::Linha> Escolhida() const;
    // "12 linhas", "3 de 12 linhas"
    [[nodiscard]] QString Situacao() const;

    // To be set before the list is used: a row was opened by Enter or a double click; other rows
    // are shown.
    std::function<void()> aoAbrir;
    std::function<void()> aoMudar;

  protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    void CriarTabela();
    void EscolherPrimeira();

    ModeloDeclaracoes modelo_;
    DeclaracoesFiltradas filtradas_;
    QLineEdit* campoBusca_;
    QTableView* tabela_;
};

}  // namespace tarvo::host
