#pragma once

#include <QRectF>
#include <QString>
#include <optional>
#include <vector>

namespace tarvo {

class CelulasDeTexto;

// The cells of one page that the user has selected. Pages count from 0, places are points from the
// page's top-left corner.
class SelecaoDeCelulas {
  public:
    // What can be selected from now on, with nothing selected; null for nothing. The cells outlive
    // their use.
    void Mostrar(const CelulasDeTexto* celulas);

    // The mouse goes down at that place, which forgets the earlier selection, and moves on. Both
    // return whether the selection has changed; a hair's way is a click and selects nothing.
    bool Comecar(int pagina, const QPointF& ponto);
    bool Estender(const QPointF& ponto);
    // Selects the cell at that place; false when none is there.
    bool SelecionarCelula(int pagina, const QPointF& ponto);
    void SelecionarArea(int pagina, const QRectF& area);

    [[nodiscard]] bool Vazia() const { return !area_.has_value(); }
    [[nodiscard]] QString Texto() const;
    [[nodiscard]] std::vector<QRectF> Caixas(int pagina) const;

  private:
    const CelulasDeTexto* celulas_ = nullptr;
    int pagina_ = 0;
    QPointF inicio_;
    std::optional<QRectF> area_;
};

}  // namespace tarvo
