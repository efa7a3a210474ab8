// SPDX-License-Identifier: MIT
#pragma once

#include "host/commands/Argumentos.h"
#include "host/commands/Console.h"

namespace tarvo::host {

// Builds the chosen reports of many declarations or of a part of them, in parallel: a folder for
// each declaration, or one PDF for each (unico), and a summary (see NomeDoResumo). Each worker has
// a read-only connection and work tables of its own, so the database is never written. A report
// that fails stands in the summary and stops nothing. SIGINT and SIGTERM stop between pages and
// leave nothing half-written; retomar goes on where a stopped batch ended. Returns the exit status.
int ExecutarLote(const Argumentos& argumentos, Console& console);

}  // namespace tarvo::host
