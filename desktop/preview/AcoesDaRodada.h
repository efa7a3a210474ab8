// SPDX-License-Identifier: MIT
#pragma once

namespace tarvo {

class AcoesDaVisualizacao;
class GrupoDePrevias;
class JanelaVisualizacao;

// The actions that concern all open previews, or ask the host for others; hidden where there is
// nothing to do. Ties those of the window to the group; all outlive that.
void LigarAcoesDaRodada(const AcoesDaVisualizacao& acoes, JanelaVisualizacao& janela,
                        GrupoDePrevias& grupo);
void AtualizarAcoesDaRodada(const AcoesDaVisualizacao& acoes, const GrupoDePrevias& grupo);

}  // namespace tarvo
