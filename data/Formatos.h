// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/Data.h"
#include "data/Moeda.h"
#include "data/Publico.h"

// The Brazilian conventions for numbers and dates, the same whatever the process's locale.
namespace tarvo {

// "#,##0.00": "1.234,56"; halves round away from zero; a negative amount that rounds to zero is
// "0,00".
TARVO_PUBLICO std::string FormatarValor(Moeda valor);
// "dd/mm/yyyy"
TARVO_PUBLICO std::string FormatarData(Data data);
// "mm/yyyy"
TARVO_PUBLICO std::string FormatarMesAno(Data data);
// "hh:mm:ss"
TARVO_PUBLICO std::string FormatarHora(Data data);

// Reads a number in the Brazilian convention ("1.234,56", "-0,5", blanks around it allowed) as an
// integer scaled by 10^casas; further decimals round halves to even. destino names the wanted
// type in the error text. Error 13 for any other text, 6 outside the 64-bit range.
TARVO_PUBLICO std::int64_t LerDecimal(std::string_view texto, int casas, std::string_view destino);

}  // namespace tarvo
