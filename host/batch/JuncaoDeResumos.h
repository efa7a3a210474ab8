// SPDX-License-Identifier: MIT
#pragma once

#include "host/commands/Argumentos.h"
#include "host/commands/Console.h"

namespace tarvo::host {

// Joins the summaries that the folders hold of the parts of one batch and says what each part has
// come to and what is missing: parts that did not begin, declarations that are not done, reports
// that failed. Returns the exit status, Feito when nothing is. Error 5 for folders that do not hold
// parts of one batch, each once, and for what is no summary; the errors of Arquivos.h.
int JuntarResumos(const Argumentos& argumentos, Console& console);

}  // namespace tarvo::host
