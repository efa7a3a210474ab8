// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "reports/RelatorioDeConsulta.h"

namespace tarvo {

struct DescricaoDetSubitens;
class TabelaEmDesenho;

// The declaration's entries of a fixed set of sub-items, each with its catalogue texts, its
// supporting rows and its declared value, and the total of the declared values: the one design of
// five entries of the selection list.
class RelatorioDetSubitens : public RelatorioDeConsulta {
  protected:
    RelatorioDetSubitens(const DescricaoDetSubitens& descricao, const Ambiente& ambiente);

  private:
    [[nodiscard]] std::string Consulta(std::int32_t NumeroDRQ) const override;
    void ImprimirPaginas(BancoDados& banco, Recordset& identificacao, Recordset& entradas) override;
    void ImprimirSubitem(double y, std::string_view subitem, std::string_view ocorrencia,
                         std::string_view fundamento);
    void ImprimirLinha(TabelaEmDesenho& tabela, double y, std::string_view subitem,
                       Recordset& linha);
    void ImprimirSoma(double y, FuncaoDaLinha funcao, std::string_view rotulo, Moeda soma);

    const DescricaoDetSubitens& descricao_;
};

// Accumulated credit received: entry 11.
class RelatorioDetRecCredAcum final : public RelatorioDetSubitens {
  public:
    explicit RelatorioDetRecCredAcum(const Ambiente& ambiente = {});
};

// Accumulated credit with an electronic authorisation: entry 11A.
class RelatorioDetRecCredAcVE final : public RelatorioDetSubitens {
  public:
    explicit RelatorioDetRecCredAcVE(const Ambiente& ambiente = {});
};

// Tax centralised between establishments: entry 12.
class RelatorioDetCentrRecImp final : public RelatorioDetSubitens {
  public:
    explicit RelatorioDetCentrRecImp(const Ambiente& ambiente = {});
};

// Refund of retained tax, claimed by the substituted taxpayer: entry 13.
class RelatorioDetResSubstitui final : public RelatorioDetSubitens {
  public:
    explicit RelatorioDetResSubstitui(const Ambiente& ambiente = {});
};

// Refund of retained tax, given by the substitute taxpayer: entry 15.
class RelatorioDetResSubstitut final : public RelatorioDetSubitens {
  public:
    explicit RelatorioDetResSubstitut(const Ambiente& ambiente = {});
};

}  // namespace tarvo
