// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QString>
#include <vector>

namespace tarvo {

class CelulasDeTexto;

// The cells that the user has selected: those in a rectangle of one page, or the columns between
// two places of different pages. Pages count from 0, places are points from the page's top-left
// corner.
class SelecaoDeCelulas {
  public:
    // What can be selected from now on, with nothing selected; null for nothing. The cells outlive
    // their use.
    void Mostrar(const CelulasDeTexto* celulas);

    // The mouse goes down at that place, which forgets the earlier selection, and moves on. Both
    // return whether the selection has changed; a hair's way is a click and selects nothing.
    bool Comecar(int pagina, const QPointF& ponto);
    bool Estender(int pagina, const QPointF& ponto);
    // Selects the cell at that place; false when none is there.
    bool SelecionarCelula(int pagina, const QPointF& ponto);
    // What lies within that part of a page.
    void SelecionarArea(int pagina, const QRectF& area);
    // All of these pages, which are as large as papel.
    void SelecionarPaginas(int primeira, int ultima, const QSizeF& papel);

    [[nodiscard]] bool Vazia() const { return vazia_; }
    [[nodiscard]] QString Texto() const;
    // The selected cells; when none is, those of that page beside the place of the last click.
    [[nodiscard]] std::vector<std::size_t> Celulas(int pagina) const;
    [[nodiscard]] std::vector<QRectF> Caixas(int pagina) const;

  private:
    struct Lugar {
        int pagina = 0;
        QPointF ponto;
    };
    [[nodiscard]] QRectF Area(int pagina) const;

    const CelulasDeTexto* celulas_ = nullptr;
    Lugar inicio_, fim_;
    bool vazia_ = true;
};

}  // namespace tarvo
