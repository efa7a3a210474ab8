// SPDX-License-Identifier: MIT
#pragma once

#include <QToolBar>

class QLabel;

namespace tarvo {

class AcoesDaVisualizacao;
class CampoAmpliacao;
class CampoPagina;
class VistaPaginas;

// The preview's tool bar: the most used actions, the page field and the magnification field, both
// of which act on the view.
class BarraDeFerramentas final : public QToolBar {
  public:
    // Both outlive the bar.
    BarraDeFerramentas(QWidget* pai, const AcoesDaVisualizacao& acoes, VistaPaginas& vista);

    // Brings the fields up to the view.
    void Atualizar();
    // Puts the focus into the page field.
    void PedirPagina();

  private:
    VistaPaginas& vista_;
    CampoPagina* campoPagina_;
    QLabel* totalPaginas_;
    CampoAmpliacao* campoAmpliacao_;
};

}  // namespace tarvo
