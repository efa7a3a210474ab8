// SPDX-License-Identifier: MIT
#pragma once

namespace tarvo {

class AcoesDaVisualizacao;
class VistaPaginas;

// The actions that act on the view alone: magnification, layout and the way through the pages. Ties
// them to the view; both outlive that.
void LigarAcoesDaVista(const AcoesDaVisualizacao& acoes, VistaPaginas& vista);
// Enables and checks them as the view is now.
void AtualizarAcoesDaVista(const AcoesDaVisualizacao& acoes, const VistaPaginas& vista);

}  // namespace tarvo
