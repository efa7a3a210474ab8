// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "data/Publico.h"
#include "reports/RelatorioDeTabela.h"

namespace tarvo {

class TabelaDeTrabalho;
struct FaixaCFOP;
struct TipoResumo;

// The detail lines of one declaration under the groups of their CFOP codes, and the totals of all
// of them, also of those that no group holds.
//
// The host's current reference period decides which table of codes is used, the declaration's own
// reference year which columns are printed. Error 13 for a reference period that is no month,
// before anything is changed.
class TARVO_PUBLICO RelatorioResumoCFOPs : public RelatorioDeTabela {
  protected:
    RelatorioResumoCFOPs(const TipoResumo& tipo, const Ambiente& ambiente);

  private:
    void Montar(BancoDados& banco, std::int32_t NumeroDRQ) override;
    void AdicionarGrupo(BancoDados& banco, TabelaDeTrabalho& tabela, const FaixaCFOP& faixa,
                        std::int32_t NumeroDRQ);
    void CopiarDetalhesCFOPs(Recordset& detalhes, TabelaDeTrabalho& tabela);
    void AdicionarTotal(BancoDados& banco, TabelaDeTrabalho& tabela, std::int32_t NumeroDRQ);

    void ImprimirTitulosColunas(TabelaEmDesenho& tabela, Recordset& identificacao) override;
    void ImprimirLinha(Recordset& linha, Recordset& identificacao, double y) override;

    const TipoResumo& tipo_;
};

}  // namespace tarvo
