// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <functional>

#include "desktop/preview/Ampliacao.h"

namespace tarvo {

// The field with the magnification: the usual ones to choose from, any other to type.
class CampoAmpliacao final : public QComboBox {
  public:
    explicit CampoAmpliacao(QWidget* pai);

    // What the user is typing stays.
    void Mostrar(double ampliacao);

    // To be set before the field is used.
    std::function<void(double)> aoAmpliar;
    std::function<void(Ajuste)> aoAjustar;
    std::function<void()> aoConcluir;  // a choice, or Enter after a magnification

  private:
    // False, with what is wrong said, when no magnification was typed.
    bool Ler();

    double ampliacao_ = 1.0;
};

}  // namespace tarvo
