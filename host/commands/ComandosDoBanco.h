// SPDX-License-Identifier: MIT
#pragma once

#include "host/commands/Argumentos.h"
#include "host/commands/Console.h"

// The commands that read a database and need no window. Each returns the exit status.
namespace tarvo::host {

// Copies the database, or the declarations that the command line names, into a new SQLite file and
// says how much that was.
int Copiar(const Argumentos& argumentos, Console& console);

// Lists the taxpayers with their declarations.
int ListarDeclaracoes(const Argumentos& argumentos, Console& console);

// Writes the chosen reports of a declaration into the folder, or the one to the standard output.
int ExportarRelatorios(const Argumentos& argumentos, Console& console);

// Builds the chosen reports and hands each to the print queue as a job of its own.
int ImprimirRelatorios(const Argumentos& argumentos, Console& console);

// Says what in the database will not print as its user expects: of the whole database, or of the
// declarations that the command line names. 1 when there is something.
int VerificarBanco(const Argumentos& argumentos, Console& console);

}  // namespace tarvo::host
