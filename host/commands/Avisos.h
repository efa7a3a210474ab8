// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <vector>

#include "host/commands/Argumentos.h"
#include "host/commands/Console.h"
#include "output/FormatoDeSaida.h"
#include "review/Revisao.h"

// The doubts about pages that are said beside them: one short line each.
namespace tarvo::host {

// What a document had to cut, a line for each text: "página 2, a 1,00 × 5,90 cm: …", "páginas 1 a
// 4: …".
void AvisarCortes(Console& console, const std::string& nome,
                  std::span<const TextoCortado> cortados);

// The findings about those reports. What ends the review is said like a finding: it must not take
// the pages away.
std::vector<Achado> RevisarComAvisos(BancoDados& banco, const PedidoDeRevisao& pedido,
                                     Console& console);

// Looks at the whole database and says as warnings what is damaged in it: it may be read without an
// error and give pages with rows missing.
void AvisarDanos(BancoDados& banco, Console& console);
// The same, where that costs little beside the reports that are asked for.
void AvisarDanosSeBarato(BancoDados& banco, const Argumentos& argumentos, Console& console);

// Those that concern one of these reports.
std::vector<Achado> AchadosDe(const std::vector<std::string>& codigos, std::vector<Achado> achados);

}  // namespace tarvo::host
