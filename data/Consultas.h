// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/Publico.h"

// The query texts that several reports share, and the only place where values enter a query.
namespace tarvo {

// A text value between single quotes, with the quotes inside it doubled, so that no value can
// change the query's meaning.
TARVO_PUBLICO std::string TextoSql(std::string_view valor);

// The one taxpayer row (registration report).
TARVO_PUBLICO std::string ConsultaContribuinte(std::string_view IE);
// The one taxpayer row beside the one declaration row; empty when either is missing.
TARVO_PUBLICO std::string ConsultaIdentificacao(std::string_view IE, std::int32_t NumeroDRQ);
// "SELECT * FROM tabela" with its rows of one declaration only.
TARVO_PUBLICO std::string ConsultaDaDeclaracao(std::string_view tabela, std::int32_t NumeroDRQ);
// The declaration's first reference date, column Ref1.
TARVO_PUBLICO std::string ConsultaRef1(std::int32_t NumeroDRQ);

}  // namespace tarvo
