#pragma once

#include <iosfwd>

#include "host/commands/Argumentos.h"

namespace tarvo::host {

// Builds the chosen reports and hands each to the print queue as a job of its own. Returns the exit
// status.
int ImprimirRelatorios(const Argumentos& argumentos, std::ostream& saida, std::ostream& erros);

}  // namespace tarvo::host
