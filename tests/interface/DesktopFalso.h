// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "desktop/AreaDeTrabalho.h"

namespace tarvo::teste {

// What the desktop was asked for, and what its user does.
struct DesktopFalso {
    std::vector<std::string> pedidos;  // "Exibir Relatório de Pagamentos"
    std::set<const Visualizador*> abertas;
    bool temTela = true;
    std::function<void(frmImpressaoRelatorios&)> usuario;  // acts on the selection dialog
};

// Of the process. Opened by the first call that needs a desktop.
TARVO_PUBLICO DesktopFalso& ODesktopFalso();

}  // namespace tarvo::teste
