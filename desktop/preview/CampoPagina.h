// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <functional>

namespace tarvo {

// The field with the number of the page that is shown; typing another one goes there.
class CampoPagina final : public QLineEdit {
  public:
    explicit CampoPagina(QWidget* pai);

    // Both from 1. What the user is typing stays.
    void Mostrar(int pagina, int paginas);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    // To be set before the field is used.
    std::function<void(int pagina)> aoPedir;  // from 1
    std::function<void()> aoConcluir;         // Enter, after a page that exists

  private:
    // Goes to the page that was typed; false, with what is wrong said, when there is none such.
    bool Ler();

    int pagina_ = 1;
    int paginas_ = 1;
};

}  // namespace tarvo
