#pragma once

#include <functional>
#include <string>
#include <vector>

#include "document/Relatorio.h"
#include "host/commands/Argumentos.h"
#include "host/commands/Console.h"

namespace tarvo::host {

// What becomes of a built report; returns the texts that had to be cut.
using UsoDoRelatorio =
    std::function<std::vector<TextoCortado>(const std::string& codigo, const Relatorio& relatorio)>;

// Opens the database, builds each report that the command line asks for and hands it on. A report
// that fails is said and stops nothing; so are texts that were cut and a taxpayer or declaration
// that does not exist. Returns the exit status; error 3021 when all reports of a missing
// declaration are asked for.
int ParaCadaRelatorio(const Argumentos& argumentos, Console& console, const UsoDoRelatorio& usar);

}  // namespace tarvo::host
