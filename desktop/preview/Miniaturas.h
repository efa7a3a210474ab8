// SPDX-License-Identifier: MIT
#pragma once

#include <QListView>
#include <functional>

#include "desktop/preview/PintorPaginas.h"

namespace tarvo {

// Small pictures of the pages, painted as they come into sight; choosing one goes to its page.
class Miniaturas final : public QListView {
  public:
    explicit Miniaturas(QWidget* pai);
    ~Miniaturas() override;

    // Null for nothing. It outlives its being shown.
    void Mostrar(PintorPaginas* pintor);
    // Marks the page (from 0) and brings it into sight.
    void Marcar(int pagina);
    // A picture may have come.
    void Atualizar() { viewport()->update(); }
    [[nodiscard]] QSize sizeHint() const override;

    std::function<void(int pagina)> aoEscolher;

  private:
    class Modelo;
    Modelo* modelo_;
};

}  // namespace tarvo
