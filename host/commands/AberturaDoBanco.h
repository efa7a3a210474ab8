// SPDX-License-Identifier: MIT
#pragma once

#include "databases/OrigemBanco.h"
#include "host/commands/Argumentos.h"
#include "host/commands/Console.h"

namespace tarvo::host {

// The database of the command line, found (see OrigemBanco); what should be known of it is said.
OrigemBanco LocalizarBanco(const Argumentos& argumentos, Console& console, OpcoesAbertura opcoes);

}  // namespace tarvo::host
