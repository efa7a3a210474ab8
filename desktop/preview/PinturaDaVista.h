// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QRect>
#include <vector>

#include "desktop/preview/DisposicaoPaginas.h"
#include "desktop/preview/PintorPaginas.h"

namespace tarvo {

class BuscaTexto;
class SelecaoDeCelulas;

// One painting of the view: pages, search hits and selection. Pages come in parts of limited size,
// so that the greatest magnification costs no more memory than the window shows.
class PinturaDaVista {
  public:
    // densidade: device pixels for each of the view's. Everything outlives the painting.
    PinturaDaVista(QPainter& pintura, const DisposicaoPaginas& disposicao, double densidade);

    // Paints what is there and asks pintor for the rest. busca may be null.
    void Pintar(PintorPaginas& pintor, BuscaTexto* busca, const SelecaoDeCelulas& selecao,
                const QColor& corDaSelecao);

  private:
    [[nodiscard]] std::vector<Recorte> Recortes(int pagina, const QRect& visivel) const;
    void PintarPagina(int pagina, const PintorPaginas& pintor, std::vector<Recorte>& faltam);
    void PintarMarcas(int pagina, BuscaTexto* busca, const SelecaoDeCelulas& selecao,
                      const QColor& corDaSelecao);

    QPainter& pintura_;
    const DisposicaoPaginas& disposicao_;
    double densidade_;
};

}  // namespace tarvo
