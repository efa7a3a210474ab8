// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include "host/windows/ListaDeclaracoes.h"

namespace tarvo {
class ConfiguracoesIni;
}

namespace tarvo::host {

// What the host's window remembers of the user (see Habitos.h): the databases that were opened
// last, the latest first.
QStringList LerRecentes(const ConfiguracoesIni& preferencias);
void AcrescentarRecente(ConfiguracoesIni& preferencias, const QString& arquivo);

// Where the user was in the list when the window was closed last.
LugarNaLista LerLugar(const ConfiguracoesIni& preferencias);
void GravarLugar(ConfiguracoesIni& preferencias, const LugarNaLista& lugar);

}  // namespace tarvo::host
