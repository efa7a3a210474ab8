#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "reports/FaixasCFOP.h"
#include "reports/RelatorioDeTabela.h"

namespace tarvo {

class TabelaDeTrabalho;

// What differs between the CFOP summaries; constant data of the report classes.
struct TipoResumo {
    IdentidadeRelatorio identidade;
    FormatoDeTabela formato;
    const std::span<const FaixaCFOP>& faixasAntigas;
    const std::span<const FaixaCFOP>& faixasNovas;
    std::string_view grupos;  // CFOP groups of the total, one digit each
    std::string_view tituloComImposto;
    std::string_view tituloSemImposto;
    std::string_view tituloImposto;
};

// The pages of the CFOP summaries: landscape, 14 lines.
constexpr FormatoDeTabela FormatoDeResumo(std::string_view tabela, std::string_view titulo) {
    return {.tabela = tabela,
            .cabecalho = {.titulo = titulo, .largura = LarguraPaisagem},
            .yPrimeiraLinha = 7.7,
            .yUltimaLinha = 15.7,
            .yRodape = 16.3};
}

// The detail lines of one declaration under the groups of their CFOP codes, and the totals of all
// of them, also of those that no group holds.
//
// The host's current reference period decides which table of codes is used, the declaration's own
// reference year which columns are printed. Error 13 for a reference period that is no month,
// before anything is changed.
class RelatorioResumoCFOPs : public RelatorioDeTabela {
  protected:
    RelatorioResumoCFOPs(const TipoResumo& tipo, const Ambiente& ambiente)
        : RelatorioDeTabela(tipo.identidade, tipo.formato, ambiente), tipo_(tipo) {}

  private:
    void Montar(BancoDados& banco, std::int32_t NumeroDRQ) override;
    void AdicionarGrupo(BancoDados& banco, TabelaDeTrabalho& tabela, const FaixaCFOP& faixa,
                        std::int32_t NumeroDRQ);
    void CopiarDetalhesCFOPs(Recordset& detalhes, TabelaDeTrabalho& tabela);
    void AdicionarTotal(BancoDados& banco, TabelaDeTrabalho& tabela, std::int32_t NumeroDRQ);

    void ImprimirTitulosColunas(Recordset& identificacao) override;
    void ImprimirLinha(Recordset& linha, Recordset& identificacao, double y) override;

    const TipoResumo& tipo_;
};

}  // namespace tarvo
