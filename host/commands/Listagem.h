// SPDX-License-Identifier: MIT
#pragma once

#include "host/commands/Argumentos.h"
#include "host/commands/Console.h"

namespace tarvo::host {

// Lists the taxpayers of a database with their declarations. Returns the exit status.
int ListarDeclaracoes(const Argumentos& argumentos, Console& console);

}  // namespace tarvo::host
