// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <span>

#include "data/Publico.h"
#include "document/TabelasDoDocumento.h"

// Tables as separated values, for spreadsheets and programs.
namespace tarvo {

struct FormaDoCSV {
    char separador = ';';
    bool marca = true;  // the byte order mark, by which spreadsheets know UTF-8
};

// The tables one after the other with an empty line between them: the line of the headings, where
// the table has some, then a line (CR+LF) for each row, with as many cells each. Amounts are
// written without thousands separators ("1234,56"), everything else as it is on the page; but a
// text that a spreadsheet would run as a formula gets an apostrophe before it. Error 57 when the
// stream fails.
TARVO_PUBLICO void EscreverCSV(std::span<const TabelaDoDocumento> tabelas, std::ostream& saida,
                               const FormaDoCSV& forma = {});

}  // namespace tarvo
