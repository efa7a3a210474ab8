// SPDX-License-Identifier: MIT
#pragma once

#include "host/commands/Argumentos.h"
#include "host/commands/Console.h"

namespace tarvo::host {

// Copies the database, or the declarations that the command line names, into a new SQLite file and
// says how much that was. Returns the exit status.
int Copiar(const Argumentos& argumentos, Console& console);

}  // namespace tarvo::host
