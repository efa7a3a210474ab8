// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/AndamentoQt.h"
#include "desktop/preview/GrupoDePrevias.h"
#include "document/Ambiente.h"

namespace tarvo {

class ConfiguracoesIni;

// Makes the preview windows of the documents and prints them through the system's print queue.
class FabricaVisualizadoresQt final : public FabricaVisualizadores {
  public:
    // Both may be null and outlive every preview: where windows keep their place, and the progress
    // window of the builds, which goes on while a document is made ready.
    explicit FabricaVisualizadoresQt(ConfiguracoesIni* preferencias = nullptr,
                                     AndamentoQt* andamento = nullptr)
        : preferencias_(preferencias), andamento_(andamento != nullptr ? *andamento : proprio_) {}

    std::unique_ptr<Visualizador> Criar() override;

    // Whether a preview has something on its way to the printer.
    [[nodiscard]] static bool Imprimindo();
    // Those that are open.
    [[nodiscard]] GrupoDePrevias& Previas() { return grupo_; }

  private:
    ConfiguracoesIni* preferencias_;
    AndamentoQt proprio_;
    AndamentoQt& andamento_;
    GrupoDePrevias grupo_{preferencias_};
};

}  // namespace tarvo
