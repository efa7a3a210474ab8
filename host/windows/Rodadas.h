// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "dispatch/Relatorios.h"
#include "dispatch/frmImpressaoRelatorios.h"
#include "slip/RelatorioVELO.h"

class QWidget;

namespace tarvo::host {

class AmbienteComJanelas;
class AvisosDaDeclaracao;

// The runs of a database's reports: what the user has ticked is ticked again the next time, and the
// same reports can be had of another declaration. Releasing it closes the previews. Errors are
// explained with the name of the report that has failed.
class Rodadas {
  public:
    // They outlive the object; avisos is told what the pages do not show.
    Rodadas(AmbienteComJanelas& ambiente, QWidget& janela, AvisosDaDeclaracao& avisos);

    struct Declaracao {
        std::string IE;
        std::int32_t NroDRQ = 0;
    };
    // Shows the selection dialog.
    void Executar(BancoDados& banco, const Declaracao& declaracao);
    // Previews the reports of the last run anew without asking; their windows stay where they are,
    // at the page that they show if it is the same declaration.
    void Repetir(BancoDados& banco, const Declaracao& declaracao);
    void MostrarVELO(BancoDados& banco);

    // Of the last run.
    [[nodiscard]] const std::optional<Declaracao>& Ultima() const { return ultima_; }

  private:
    // The dialog, or for a repetition what its user has chosen before.
    class Selecao final : public JanelaSelecao {
      public:
        Selecao(AmbienteComJanelas& ambiente, QWidget& janela)
            : ambiente_(ambiente), janela_(janela) {}
        void ExibirModal(frmImpressaoRelatorios& dialogo) override;
        [[nodiscard]] std::int32_t Marcas() const;
        bool repetir = false;

      private:
        AmbienteComJanelas& ambiente_;
        QWidget& janela_;
    };

    void Produzir(BancoDados& banco, const Declaracao& declaracao);

    AmbienteComJanelas& ambiente_;
    QWidget& janela_;
    AvisosDaDeclaracao& avisos_;
    Selecao selecao_;
    Relatorios relatorios_;
    RelatorioVELO velo_;
    std::optional<Declaracao> ultima_;
};

}  // namespace tarvo::host
