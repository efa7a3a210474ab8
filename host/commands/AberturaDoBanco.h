// SPDX-License-Identifier: MIT
#pragma once

#include "databases/OrigemBanco.h"
#include "host/commands/Argumentos.h"
#include "host/commands/Console.h"
#include "host/commands/Interrupcao.h"

namespace tarvo::host {

// The database of the command line, found (see OrigemBanco); what should be known of it is said.
OrigemBanco LocalizarBanco(const Argumentos& argumentos, Console& console, OpcoesAbertura opcoes);

// The same for a command that runs without windows. While it lives, a signal ends what these
// databases are read for.
class AberturaInterrompivel {
  public:
    AberturaInterrompivel(const Argumentos& argumentos, Console& console)
        : argumentos_(argumentos), console_(console), andamento_(&console) {}

    OrigemBanco Localizar(OpcoesAbertura opcoes);
    std::unique_ptr<BancoDados> Abrir(const OpcoesAbertura& opcoes) {
        return Acompanhada(Localizar(opcoes));
    }
    [[nodiscard]] std::unique_ptr<BancoDados> Acompanhada(const OrigemBanco& origem);
    [[nodiscard]] Andamento& QuemPergunta() { return andamento_; }

  private:
    const Argumentos& argumentos_;
    Console& console_;
    CapturaDeInterrupcao captura_;
    CancelaSeInterrompido andamento_;
};

}  // namespace tarvo::host
