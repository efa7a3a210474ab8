#pragma once

#include <functional>
#include <iosfwd>

#include "host/commands/Argumentos.h"

namespace tarvo::host {

// Opens the database, builds each report that the command line asks for and hands it on. A report
// that fails is said on erros and stops nothing; so are texts that were cut and a taxpayer or
// declaration that does not exist. Returns the exit status; error 3021 when all reports of a
// missing declaration are asked for.
int ParaCadaRelatorio(const Argumentos& argumentos, std::ostream& erros,
                      const std::function<std::vector<TextoCortado>(
                          const std::string& codigo, const Relatorio& relatorio)>& usar);

}  // namespace tarvo::host
