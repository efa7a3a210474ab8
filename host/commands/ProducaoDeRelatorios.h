// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "document/Relatorio.h"
#include "host/commands/Argumentos.h"
#include "host/commands/Console.h"
#include "host/commands/Mensagens.h"
#include "review/Achado.h"

namespace tarvo::host {

// What becomes of a built report; returns the texts that had to be cut.
using UsoDoRelatorio =
    std::function<std::vector<TextoCortado>(const std::string& codigo, const Relatorio& relatorio)>;

struct Producao {
    int situacao = Feito;  // exit status
    std::vector<Achado> achados;
};

// Opens the database, builds each report that the command line asks for and hands it on, then says
// what in the declaration their pages do not show. A report that fails is said and stops nothing;
// so are texts that were cut. Error 3021 when all reports of a missing declaration are asked for.
Producao ParaCadaRelatorio(const Argumentos& argumentos, Console& console,
                           const UsoDoRelatorio& usar);

}  // namespace tarvo::host
