// SPDX-License-Identifier: MIT
#pragma once

#include "data/BancoDados.h"
#include "host/commands/Argumentos.h"
#include "host/commands/Console.h"

// A damaged database may be read without an error and give pages with rows missing.
namespace tarvo::host {

// Looks at the whole database and says as warnings what is damaged in it.
void AvisarDanos(BancoDados& banco, Console& console);
// The same, where that costs little beside the reports that are asked for.
void AvisarDanosSeBarato(BancoDados& banco, const Argumentos& argumentos, Console& console);

}  // namespace tarvo::host
