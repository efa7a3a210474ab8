#pragma once

#include <memory>
#include <optional>
#include <string>

#include "desktop/AndamentoQt.h"
#include "desktop/preview/VisualizadorQt.h"
#include "reports/ConfiguracoesDaChamada.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo::host {

// What this host hands to the library: previews, printing, settings, progress. Outlives every
// report object made with it.
class AmbienteComJanelas {
  public:
    explicit AmbienteComJanelas(const std::optional<std::string>& refAtual)
        : configuracoes_(preferencias_, refAtual) {}

    [[nodiscard]] Ambiente DosRelatorios() {
        return {.visualizadores = &visualizadores_,
                .configuracoes = &configuracoes_,
                .andamento = &andamento_};
    }
    [[nodiscard]] ConfiguracoesIni& Preferencias() { return preferencias_; }

    // Takes the progress window away when the returned object goes, however the build has ended.
    struct Concluir {
        void operator()(AndamentoQt* andamento) const { andamento->Concluir(); }
    };
    [[nodiscard]] std::unique_ptr<AndamentoQt, Concluir> ConcluirAndamentoNoFim() {
        return std::unique_ptr<AndamentoQt, Concluir>(&andamento_);
    }

  private:
    ConfiguracoesIni preferencias_;
    ConfiguracoesDaChamada configuracoes_;
    AndamentoQt andamento_;
    FabricaVisualizadoresQt visualizadores_{&preferencias_, &andamento_};
};

}  // namespace tarvo::host
