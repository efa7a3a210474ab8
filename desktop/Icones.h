// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace tarvo {

// The icon desktop/icons/NOME.svg in the colour of the palette's text, sharp at every size.
QIcon IconeDeTracos(const char* nome);

}  // namespace tarvo
