// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

class QAction;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPdfDocument;

namespace tarvo {

class BuscaTexto;

// The bar in which the user types what to look for in a document, with the number of hits.
class BarraDeBusca final : public QWidget {
  public:
    // The two actions stand in the bar as buttons.
    BarraDeBusca(QWidget* pai, QAction& proximo, QAction& anterior);
    ~BarraDeBusca() override;

    // What is searched from now on, with the bar closed; null for nothing. It outlives its use.
    void Mostrar(QPdfDocument* documento);
    [[nodiscard]] BuscaTexto* Busca() const { return busca_.get(); }
    // Shows the bar with its text selected.
    void Abrir();
    // Hides the bar and forgets what was found.
    void Fechar();
    // To the next or, negative, the preceding hit; opens the bar when it is closed.
    void Mover(int sentido);

    // To be set before the bar is used. A search begins at paginaAtual (from 0); aoMudar as
    // BuscaTexto has it.
    std::function<int()> paginaAtual;
    std::function<void(bool novoAtual)> aoMudar;
    std::function<void()> aoFechar;

  protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    void Procurar();
    void MostrarSituacao();

    QLineEdit* campo_;
    QCheckBox* exata_;
    QLabel* situacao_;
    std::unique_ptr<BuscaTexto> busca_;
};

}  // namespace tarvo
