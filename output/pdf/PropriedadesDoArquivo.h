// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "output/pdf/RenderizadorPDF.h"
#include "output/pdf/file/Metadados.h"

namespace tarvo::pdf {

// What a file of these documents says of itself. Several documents of one declaration bear its
// title, others the first one's.
Propriedades PropriedadesDe(std::span<const SecaoPDF> secoes);

}  // namespace tarvo::pdf
