// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "data/Publico.h"
#include "document/Relatorio.h"

namespace tarvo {

// The registration data of one taxpayer on one portrait page: entry 01 of the selection list.
class TARVO_PUBLICO RelatorioCadastro final : public RelatorioDeclaracao {
  public:
    explicit RelatorioCadastro(const Ambiente& ambiente = {});

    using RelatorioDeclaracao::Construir;
    // The declaration plays no part.
    void Construir(BancoDados& banco, const std::string& IE) { Construir(banco, IE, 0); }

  private:
    void Desenhar(BancoDados& banco, const std::string& IE, std::int32_t NumeroDRQ) override;
    void ImprimirCadastro(Recordset& contribuinte, double x, double y);
};

}  // namespace tarvo
