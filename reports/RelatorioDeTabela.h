// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "data/Publico.h"
#include "reports/RelatorioDeConsulta.h"

namespace tarvo {

struct FormatoDeTabela;
class TabelaEmDesenho;

// A report in two phases: it computes its printed lines into a work table of its own, and then
// prints that table's rows page by page, both as one step that no other build enters. The work
// table is refilled even when there is no such taxpayer and the document stays empty.
class TARVO_PUBLICO RelatorioDeTabela : public RelatorioDeConsulta {
  protected:
    static constexpr double AlturaLinha = 0.6;  // cm

    RelatorioDeTabela(const IdentidadeRelatorio& identidade, const FormatoDeTabela& formato,
                      const Ambiente& ambiente)
        : RelatorioDeConsulta(identidade, ambiente), formato_(formato) {}

    // Refills the work table for the declaration.
    virtual void Montar(BancoDados& banco, std::int32_t NumeroDRQ) = 0;
    // What each page has between the page header and the first line.
    virtual void ImprimirTitulosColunas(TabelaEmDesenho& /*tabela*/, Recordset& /*identificacao*/) {
    }
    // Draws the current row of the work table with its top at y.
    virtual void ImprimirLinha(Recordset& linha, Recordset& identificacao, double y) = 0;

  private:
    void Desenhar(BancoDados& banco, const std::string& IE, std::int32_t NumeroDRQ) final;
    [[nodiscard]] std::string Consulta(std::int32_t NumeroDRQ) const final;
    void ImprimirPaginas(BancoDados& banco, Recordset& identificacao, Recordset& linhas) final;

    const FormatoDeTabela& formato_;
};

}  // namespace tarvo
