// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

#include "dispatch/frmImpressaoRelatorios.h"

namespace tarvo {

// The window of the selection dialog: a list whose entries toggle with a click and with the space
// bar, and the three buttons. Enter previews; Escape and the close box leave nothing chosen.
class JanelaSelecaoQt final : public JanelaSelecao {
  public:
    // The dialog stands over pai, or over the program's active window when there is none.
    explicit JanelaSelecaoQt(QWidget* pai = nullptr) : pai_(pai) {}

    void ExibirModal(frmImpressaoRelatorios& dialogo) override;
    void Descarregar() noexcept override;

    // Told each time before the dialog is shown, and when what it led to is done.
    std::function<void(const frmImpressaoRelatorios& dialogo)> aoExibir;
    std::function<void()> aoDescarregar;

  private:
    QPointer<QWidget> pai_;
};

}  // namespace tarvo
