// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "reports/RelatorioDeConsulta.h"

// The MIDAX-B additional information, one report for each group of codes: entries 07, 08 and 09 of
// the selection list. An entry whose town (groups 1 and 2) or code (group 3) is not in its
// catalogue is not listed.
namespace tarvo {

struct DescricaoMIDAXB;
class TabelaEmDesenho;

// Groups 1 and 2: the entries town by town, each town with its subtotal.
class RelatorioMIDAXBMunicipios : public RelatorioDeConsulta {
  protected:
    RelatorioMIDAXBMunicipios(const DescricaoMIDAXB& descricao, const Ambiente& ambiente);

  private:
    [[nodiscard]] std::string Consulta(std::int32_t NumeroDRQ) const override;
    void ImprimirPaginas(BancoDados& banco, Recordset& identificacao, Recordset& entradas) override;
    void ImprimirLinha(double y, std::string_view municipio, Recordset& entrada);
    void ImprimirSoma(double y, FuncaoDaLinha funcao, std::string_view rotulo, Moeda soma);

    const DescricaoMIDAXB& descricao_;
};

class RelatorioMIDAXBCodigo1 final : public RelatorioMIDAXBMunicipios {
  public:
    explicit RelatorioMIDAXBCodigo1(const Ambiente& ambiente = {});
};

class RelatorioMIDAXBCodigo2 final : public RelatorioMIDAXBMunicipios {
  public:
    explicit RelatorioMIDAXBCodigo2(const Ambiente& ambiente = {});
};

// Group 3: the entries in the order in which they were added, with their code's description.
class RelatorioMIDAXBCodigo3 final : public RelatorioDeConsulta {
  public:
    explicit RelatorioMIDAXBCodigo3(const Ambiente& ambiente = {});

  private:
    [[nodiscard]] std::string Consulta(std::int32_t NumeroDRQ) const override;
    void ImprimirPaginas(BancoDados& banco, Recordset& identificacao, Recordset& entradas) override;
    void ImprimirBloco(TabelaEmDesenho& tabela, double y, Recordset& entrada);
    void ImprimirTotal(double y, Moeda total);
};

}  // namespace tarvo
