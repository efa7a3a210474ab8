// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include "host/windows/ListaDeclaracoes.h"

namespace tarvo {
class ConfiguracoesIni;
}

namespace tarvo::host {

// What the host's window remembers of the user.

// The databases that the user opened last, the latest first; none from a store that cannot be read.
QStringList LerRecentes(const ConfiguracoesIni& preferencias);
// A store that cannot be written keeps what it has.
void AcrescentarRecente(ConfiguracoesIni& preferencias, const QString& arquivo);

// Where the user was in the list when the window was closed last, the same way.
LugarNaLista LerLugar(const ConfiguracoesIni& preferencias);
void GravarLugar(ConfiguracoesIni& preferencias, const LugarNaLista& lugar);

}  // namespace tarvo::host
