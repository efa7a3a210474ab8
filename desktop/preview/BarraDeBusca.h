#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;

namespace tarvo {

class BuscaTexto;

// The bar in which the user types what to look for, with the number of hits.
class BarraDeBusca final : public QWidget {
  public:
    // The two actions stand in the bar as buttons.
    BarraDeBusca(QWidget* pai, QAction& proximo, QAction& anterior);

    // Shows the bar with its text selected.
    void Abrir();
    [[nodiscard]] QString Texto() const;
    void MostrarSituacao(const BuscaTexto& busca, int paginas);

    std::function<void(const QString&)> aoDigitar;
    std::function<void(bool adiante)> aoPedirOutro;
    std::function<void()> aoFechar;

  protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    QLineEdit* campo_;
    QLabel* situacao_;
};

}  // namespace tarvo
