// SPDX-License-Identifier: MIT
#pragma once

#include "host/commands/Argumentos.h"
#include "host/commands/Console.h"

namespace tarvo::host {

// Writes the chosen reports of a declaration into the folder, or the one to the standard output.
// Returns the exit status.
int ExportarRelatorios(const Argumentos& argumentos, Console& console);

}  // namespace tarvo::host
