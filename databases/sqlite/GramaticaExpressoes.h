// SPDX-License-Identifier: MIT
#pragma once

#include "databases/sqlite/Arvore.h"
#include "databases/sqlite/Cursor.h"

namespace tarvo::sqlite {

// The value or condition that begins at the cursor; the cursor stands behind it afterwards.
Expressao LerExpressao(Cursor& cursor);

}  // namespace tarvo::sqlite
