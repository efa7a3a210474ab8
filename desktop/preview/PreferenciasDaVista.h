// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/preview/Ampliacao.h"

namespace tarvo {

class ConfiguracoesIni;

// What the preview remembers of the user's last one.
struct PreferenciasDaVista {
    Ajuste ajuste = Ajuste::LarguraDaPagina;
    double ampliacao = 1.0;  // for Ajuste::Livre
    bool continuo = true;
    bool ladoALado = false;
    bool painel = false;  // to be seen
    bool emAbas = false;  // previews in one window with a tab each

    // What is not remembered has its default.
    static PreferenciasDaVista Ler(const ConfiguracoesIni* configuracoes);
    void Gravar(ConfiguracoesIni* configuracoes) const;
};

}  // namespace tarvo
