// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/BancoDados.h"
#include "data/Publico.h"
#include "document/Ambiente.h"
#include "review/Achado.h"

// Pages show what the queries of the reports give. What those leave out, split, repeat or show
// under another code is found here, so that no row of a declaration disappears without a word: each
// is on a page exactly once, under its own code and with all its columns that the form has, or is
// named.
namespace tarvo {

// What is to be reviewed.
struct PedidoDeRevisao {
    std::string IE = {};  // of the taxpayer whose name the pages bear
    std::optional<std::int32_t> NroDRQ = {};
    // Codes of the reports, "01" to "17", "11A", "VELO"; empty: those that the dialog offers.
    std::vector<std::string> relatorios = {};
    // As the CFOP summaries read them; null: each declaration's own month decides its CFOP table.
    const Configuracoes* configuracoes = nullptr;
};

// The findings of one declaration, for those of its reports, in the order of the reports. It reads
// and never writes, with plain queries on one table each. Errors of the database end it as they end
// a report, but a missing table or column and a value that does not fit its type are findings.
// Error 5 for a code that is no report's.
TARVO_PUBLICO std::vector<Achado> Revisar(BancoDados& banco, const PedidoDeRevisao& pedido);

// The findings of a whole database that are not of one declaration: tables and columns that are
// missing, values that are not of their column's type, rows of no declaration or of no entry,
// declarations of no taxpayer, keys that stand twice. It reads every row.
TARVO_PUBLICO std::vector<Achado> RevisarBanco(BancoDados& banco);

}  // namespace tarvo
