// SPDX-License-Identifier: MIT
#pragma once

#include "host/commands/Argumentos.h"
#include "host/commands/Console.h"

namespace tarvo::host {

// Builds the chosen reports and hands each to the print queue as a job of its own. Returns the exit
// status.
int ImprimirRelatorios(const Argumentos& argumentos, Console& console);

}  // namespace tarvo::host
