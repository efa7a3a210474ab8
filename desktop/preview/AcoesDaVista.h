// SPDX-License-Identifier: MIT
#pragma once

namespace tarvo {

class AcoesDaVisualizacao;
class VistaPaginas;

// The actions that act on the view alone: magnification, layout and the way through the pages.
class AcoesDaVista {
  public:
    // Ties the actions to the view. Both outlive the object.
    AcoesDaVista(const AcoesDaVisualizacao& acoes, VistaPaginas& vista);

    // Enables and checks them as the view is now.
    void Atualizar() const;

  private:
    const AcoesDaVisualizacao& acoes_;
    VistaPaginas& vista_;
};

}  // namespace tarvo
