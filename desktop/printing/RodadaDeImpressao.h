// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <optional>

#include "desktop/printing/ImpressaoQt.h"

class QWidget;

namespace tarvo {

// The documents that are printed one after the other: the printer that the user had to choose for
// the first serves all, and at the end it is said what was printed where. Without a run each
// document is on its own.
class RodadaDeImpressao {
  public:
    void Comecar();
    // Errors as ImpressaoQt::ImprimirEEsperar.
    void Imprimir(QWidget* janela, const DocumentoImpresso& documento, Pergunta pergunta);
    // Also after an error, which keeps what was printed before it; says it unless dizer is false.
    void Concluir(QWidget* janela, bool dizer = true);

  private:
    bool emCurso_ = false;
    std::optional<OpcoesDeImpressao> opcoes_;
    QStringList impressos_;
};

}  // namespace tarvo
