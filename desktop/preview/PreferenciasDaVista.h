#pragma once

#include <QByteArray>

#include "desktop/preview/VistaPaginas.h"

namespace tarvo {

class ConfiguracoesIni;

// What the preview remembers of the user's last one.
struct PreferenciasDaVista {
    QByteArray geometria{};  // of the window
    Ajuste ajuste = Ajuste::LarguraDaPagina;
    double ampliacao = 1.0;  // for Ajuste::Livre
    bool continuo = true;
    bool miniaturas = false;

    // What is missing or unreadable has its default.
    static PreferenciasDaVista Ler(const ConfiguracoesIni& configuracoes);
    // A store that cannot be written stays as it is: losing a window's place is no error.
    void Gravar(ConfiguracoesIni& configuracoes) const;
};

}  // namespace tarvo
