// SPDX-License-Identifier: MIT
#pragma once

namespace tarvo {

class AcoesDaVisualizacao;
class GrupoDePrevias;
class JanelaVisualizacao;

// The actions that concern all open previews, or ask the host for others; hidden where there is
// nothing to do.
class AcoesDaRodada {
  public:
    // Ties the actions of the window to the group. All outlive the object.
    AcoesDaRodada(const AcoesDaVisualizacao& acoes, JanelaVisualizacao& janela,
                  GrupoDePrevias& grupo);

    void Atualizar() const;

  private:
    const AcoesDaVisualizacao& acoes_;
    GrupoDePrevias& grupo_;
};

}  // namespace tarvo
