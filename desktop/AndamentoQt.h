// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>
#include <memory>

#include "document/Ambiente.h"

namespace tarvo {

// Shows the progress of a long build after its first half second and lets the user cancel it. No
// window answers before that, so that a short build cannot be interrupted by anything.
class AndamentoQt final : public Andamento {
  public:
    bool PaginaConcluida(std::size_t paginas) override;
    bool Continuar(std::chrono::milliseconds aguardando) override;
    // The same while the pages are made ready to be seen.
    bool Preparando();
    // The build is over: takes the window away. What a cancelled one has left free goes back to the
    // system.
    void Concluir();

  private:
    bool Perguntar(const QString& situacao);

    QElapsedTimer tempo_;
    QElapsedTimer ultimaPergunta_;
    qint64 ultimaPausa_ = 0;  // ms
    std::unique_ptr<QProgressDialog> dialogo_;
    bool cancelado_ = false;
};

}  // namespace tarvo
