// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

#include "document/Conteudo.h"

namespace tarvo::bench {

// The yardstick: the document drawn operation by operation with QPainter on a QPdfWriter, as a
// program would that has nothing but Qt. Needs a QGuiApplication. Returns the file's size in bytes.
std::size_t DesenharComQPainter(const Conteudo& conteudo);

}  // namespace tarvo::bench
