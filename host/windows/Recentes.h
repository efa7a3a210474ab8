#pragma once

#include <QStringList>

namespace tarvo {
class ConfiguracoesIni;
}

namespace tarvo::host {

// The databases that the user opened last, the latest first; none from a store that cannot be read.
QStringList LerRecentes(const ConfiguracoesIni& preferencias);
// A store that cannot be written keeps what it has.
void AcrescentarRecente(ConfiguracoesIni& preferencias, const QString& arquivo);

}  // namespace tarvo::host
