// SPDX-License-Identifier: MIT
#pragma once

#include <QScopeGuard>
#include <optional>
#include <string>
#include <utility>

#include "desktop/AndamentoQt.h"
#include "desktop/Ligacao.h"
#include "desktop/preview/VisualizadorQt.h"
#include "dispatch/RevisorDosRelatorios.h"
#include "host/windows/MesDeReferencia.h"
#include "reports/ConfiguracoesDaChamada.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo::host {

// What this host hands to the library: previews, printing, settings, progress. Outlives every
// report object made with it.
class AmbienteComJanelas {
  public:
    explicit AmbienteComJanelas(const std::optional<std::string>& refAtual)
        : daChamada_(preferencias_, refAtual) {}

    [[nodiscard]] Ambiente DosRelatorios() {
        return {.visualizadores = &visualizadores_,
                .configuracoes = &configuracoes_,
                .andamento = &andamento_,
                .revisor = &revisor_};
    }
    [[nodiscard]] ConfiguracoesIni& Preferencias() { return preferencias_; }
    // The reference month in place of the call's and the user's.
    void DefinirReferencia(std::string mes) {
        daChamada_ = ConfiguracoesDaChamada(preferencias_, std::move(mes));
    }

    [[nodiscard]] GrupoDePrevias& Previas() { return visualizadores_.Previas(); }

    // Takes the progress window away when the returned object goes, however the build has ended.
    [[nodiscard]] auto ConcluirAndamentoNoFim() {
        return qScopeGuard([this] { andamento_.Concluir(); });
    }

    // One run, from the choice of the reports to the last of them. However it has ended, its
    // progress window goes and it is said over janela, which may be null, what was printed where.
    class Rodada {
      public:
        // mes: of the declaration, the proposal for the reference month.
        Rodada(AmbienteComJanelas& ambiente, QWidget* janela, std::string mes,
               Permanece permanece = Permanece::Nada)
            : ambiente_(ambiente), janela_(janela) {
            ambiente_.configuracoes_.Propor(std::move(mes));
            ambiente_.Previas().Comecar(permanece);
        }
        ~Rodada() {
            ambiente_.andamento_.Concluir();
            Proteger(janela_, [this] { ambiente_.Previas().Concluir(janela_); });
        }
        Rodada(const Rodada&) = delete;
        Rodada& operator=(const Rodada&) = delete;

      private:
        AmbienteComJanelas& ambiente_;
        QWidget* janela_;
    };

  private:
    ConfiguracoesIni preferencias_;
    ConfiguracoesDaChamada daChamada_;
    ConfiguracoesComPergunta configuracoes_{daChamada_, preferencias_};
    // As the reports have read the settings, without a question for what is not set.
    RevisorDosRelatorios revisor_{daChamada_};
    AndamentoQt andamento_;
    FabricaVisualizadoresQt visualizadores_{&preferencias_, &andamento_};
};

}  // namespace tarvo::host
