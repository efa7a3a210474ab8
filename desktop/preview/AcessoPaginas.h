// SPDX-License-Identifier: MIT
#pragma once

namespace tarvo {

class VistaPaginas;

// Pages for screen readers: below the view a child for each page, and below that its headings,
// fields, and tables with rows, columns and their headings, as the document's structure has them.
namespace AcessoPaginas {

// Once per program; again does nothing.
void Instalar();
// The view's reading cursor has moved.
void DizerCursor(VistaPaginas& vista);

}  // namespace AcessoPaginas
}  // namespace tarvo
