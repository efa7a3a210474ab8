#pragma once

#include <cstdint>
#include <string>

#include "data/Publico.h"
#include "document/Relatorio.h"

namespace tarvo {

struct DescricaoInterestad;

// The interstate operations of a declaration summed per state, in the order of the states' names,
// with a total row: the one design of entries 04 and 05. From 2002 on with the tax column.
class TARVO_PUBLICO RelatorioInterestad : public RelatorioDeclaracao {
  protected:
    RelatorioInterestad(const DescricaoInterestad& descricao, const Ambiente& ambiente);

  private:
    void Desenhar(BancoDados& banco, const std::string& IE, std::int32_t NumeroDRQ) override;

    const DescricaoInterestad& descricao_;
};

}  // namespace tarvo
