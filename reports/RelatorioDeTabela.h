#pragma once

#include <cstdint>
#include <string>

#include "data/Publico.h"
#include "document/Relatorio.h"

namespace tarvo {

struct FormatoDeTabela;

// A report in two phases: it computes its printed lines into a work table of its own, and then
// prints that table's rows page by page, both as one step that no other build enters. The work
// table is refilled even when there is no such taxpayer and the document stays empty.
class TARVO_PUBLICO RelatorioDeTabela : public RelatorioDeclaracao {
  protected:
    static constexpr double AlturaLinha = 0.6;  // cm

    RelatorioDeTabela(const IdentidadeRelatorio& identidade, const FormatoDeTabela& formato,
                      const Ambiente& ambiente)
        : RelatorioDeclaracao(identidade, ambiente), formato_(formato) {}

    // Refills the work table for the declaration.
    virtual void Montar(BancoDados& banco, std::int32_t NumeroDRQ) = 0;
    // What each page has between the page header and the first line.
    virtual void ImprimirTitulosColunas(Recordset& /*identificacao*/) {}
    // Draws the current row of the work table with its top at y.
    virtual void ImprimirLinha(Recordset& linha, Recordset& identificacao, double y) = 0;

  private:
    void Desenhar(BancoDados& banco, const std::string& IE, std::int32_t NumeroDRQ) final;
    void ImprimirPaginas(Recordset& linhas, Recordset& identificacao);

    const FormatoDeTabela& formato_;
};

}  // namespace tarvo
