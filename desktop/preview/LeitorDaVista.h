// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "desktop/preview/CursorDeLeitura.h"

namespace tarvo {

class LeituraDoDocumento;
class VistaPaginas;
struct DocumentoPronto;

// Reads what a view shows: for those who do not see it, and text by text with the arrow keys. The
// text at the reading cursor is selected and in sight.
class LeitorDaVista {
  public:
    // vista outlives the object.
    explicit LeitorDaVista(VistaPaginas& vista) : vista_(vista) {}

    // What is read from now on, without a cursor; null for nothing. It outlives its being shown.
    void Mostrar(const DocumentoPronto* documento);
    // Null for nothing.
    [[nodiscard]] const std::shared_ptr<LeituraDoDocumento>& Leitura() const;
    // Nothing while the arrow keys scroll.
    [[nodiscard]] const std::optional<LugarDeLeitura>& Cursor() const { return cursor_; }
    void DefinirCursor(bool ligado);
    // One step of the cursor; false without one, and for keys that do not move it.
    bool Andar(int tecla);

  private:
    void LevarA(const LugarDeLeitura& lugar);

    VistaPaginas& vista_;
    const DocumentoPronto* documento_ = nullptr;
    mutable std::shared_ptr<LeituraDoDocumento> leitura_;  // once somebody has asked
    std::optional<LugarDeLeitura> cursor_;
};

}  // namespace tarvo
