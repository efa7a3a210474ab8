// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <functional>

class QAbstractScrollArea;
class QMouseEvent;

namespace tarvo {

class SelecaoDeCelulas;
struct DisposicaoPaginas;

// The mouse over a view's pages: selects cells by drawing over them, or one by a double click, and
// brings the pages nearer when it is drawn beyond the edge.
class SelecaoComMouse final : public QObject {
  public:
    // They outlive the object. The page that is clicked becomes the current one of disposicao.
    SelecaoComMouse(QAbstractScrollArea& vista, DisposicaoPaginas& disposicao,
                    SelecaoDeCelulas& selecao);

    // Told when the current page or what is selected has changed.
    std::function<void()> aoMudar;

  protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void timerEvent(QTimerEvent* evento) override;

  private:
    void Apertar(const QMouseEvent& evento);
    void Mover(const QMouseEvent& evento);
    void SelecionarCelula(const QPoint& ponto);
    void Estender(const QPoint& ponto);

    QAbstractScrollArea& vista_;
    DisposicaoPaginas& disposicao_;
    SelecaoDeCelulas& selecao_;
    QBasicTimer rolagem_;  // while the mouse is beyond the edge
};

}  // namespace tarvo
