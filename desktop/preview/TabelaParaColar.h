// SPDX-License-Identifier: MIT
#pragma once

#include <QMimeData>
#include <memory>

#include "document/TabelasDoDocumento.h"

namespace tarvo {

// A table for the clipboard: cells between tabs for every program, and as HTML in which
// spreadsheets find what is a number, a date or a text.
std::unique_ptr<QMimeData> TabelaParaColar(const TabelaDoDocumento& tabela);

}  // namespace tarvo
