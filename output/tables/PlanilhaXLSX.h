// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <vector>

#include "data/Publico.h"
#include "document/TabelasDoDocumento.h"

// Tables as a workbook (XLSX).
namespace tarvo {

// The tables of one of the documents that share a workbook.
struct SecaoDaPlanilha {
    std::string nome;  // of their sheets; empty: each has its table's name
    std::vector<TabelaDoDocumento> tabelas;
};

// Writes a workbook with a sheet for each table: the headings bold and kept in sight, amounts as
// numbers with two decimals (beyond 15 digits, which such numbers do not hold, as texts), dates as
// dates, everything else as texts that are never formulas. A text of more than 32,767 characters
// goes on in the row below, a table of more than 1,048,576 rows on the next sheet. The same tables
// give the same bytes where SOURCE_DATE_EPOCH is set. Error 57 when the workbook cannot be put
// together in the folder of the temporary files, or the stream fails.
TARVO_PUBLICO void EscreverXLSX(std::span<const SecaoDaPlanilha> secoes, std::ostream& saida);

}  // namespace tarvo
