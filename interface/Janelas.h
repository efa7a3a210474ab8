// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/AreaDeTrabalho.h"

// The desktop library, loaded when it is first needed.
namespace tarvo::c {

// Error 445 when the library is not installed, when it can make no windows, or in a thread that is
// not the windows'.
AreaDeTrabalho& ExigirAreaDeTrabalho();
// Null until then.
AreaDeTrabalho* AreaDeTrabalhoAberta();

// What report objects and the entry class are made with: both wait for their first use.
FabricaVisualizadores& VisualizadoresSobDemanda();
JanelaSelecao& SelecaoSobDemanda();

}  // namespace tarvo::c
