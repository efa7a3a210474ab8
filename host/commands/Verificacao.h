// SPDX-License-Identifier: MIT
#pragma once

#include "host/commands/Argumentos.h"
#include "host/commands/Console.h"

namespace tarvo::host {

// Says what in the database will not print as its user expects: of the whole database, or of the
// declarations that the command line names. Returns the exit status, 1 when there is something.
int VerificarBanco(const Argumentos& argumentos, Console& console);

}  // namespace tarvo::host
