// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/BancoDados.h"
#include "data/Publico.h"
#include "data/Valor.h"

// The readers through which every report takes every field value: Null never fails, it reads as
// "", 0, 0, 30/12/1899, False. What cannot be converted raises error 13, what does not fit error 6.
namespace tarvo {

// A text as stored; numbers, dates and Booleans in the Brazilian convention ("1234,5",
// "05/03/2001", "Verdadeiro").
TARVO_PUBLICO std::string TextoCampo(const Valor& valor);
// Fractions round halves to even; True is -1.
TARVO_PUBLICO std::int32_t LongCampo(const Valor& valor);
// More than four decimals round halves to even.
TARVO_PUBLICO Moeda MoedaCampo(const Valor& valor);
// A number is a date serial (days since 30/12/1899); a text is read as day/month/year.
TARVO_PUBLICO Data DataCampo(const Valor& valor);
// Zero is False, any other number True.
TARVO_PUBLICO bool BooleanoCampo(const Valor& valor);

// Whether the rows have that column, which databases of others may lack.
TARVO_PUBLICO bool TemColuna(Recordset& linhas, std::string_view nome);

}  // namespace tarvo
