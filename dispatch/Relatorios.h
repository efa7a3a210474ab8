// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/BancoDados.h"
#include "data/Data.h"
#include "data/Publico.h"
#include "document/Relatorio.h"

namespace tarvo {

class frmImpressaoRelatorios;
class JanelaSelecao;

// A report of the selection list.
struct EntradaSelecao {
    std::string_view rotulo;  // as the dialog shows it; the text outlives the entry
    std::unique_ptr<RelatorioDeclaracao> relatorio;  // never null
    int desde = 0;  // offered for declarations whose reference is of this year or later
};

// The entry class: lets the user choose reports of one declaration and shows or prints them. Owns
// one object of each report of its list; previews stay open until the next Executar or until this
// object is released. Belongs to the host's user-interface thread; Executar must not be entered
// again while it runs.
class TARVO_PUBLICO Relatorios {
  public:
    // With the eighteen reports. What ambiente points to and janela outlive this object.
    Relatorios(const Ambiente& ambiente, JanelaSelecao& janela);
    // With a list of the caller's.
    Relatorios(JanelaSelecao& janela, std::vector<EntradaSelecao> entradas);
    // Releases the reports in the list's order, and with them their previews.
    ~Relatorios();
    Relatorios(const Relatorios&) = delete;
    Relatorios& operator=(const Relatorios&) = delete;

    // Hides earlier previews, shows the selection dialog with the entries ticked whose bits are set
    // in OpcoesSelecionadas (bit i is entry i; others are ignored), then builds each chosen report
    // and shows or prints it before the next is built. Error 3021, before the dialog, when there
    // is no such declaration. Any error ends the call; what was produced before it stays.
    void Executar(BancoDados& banco, const std::string& IE, std::int32_t NumeroDRQ,
                  std::int32_t OpcoesSelecionadas);

    // Label of the report that an error has kept the last Executar from producing; empty when there
    // was none.
    [[nodiscard]] std::string_view QueFalhou() const { return emProducao_; }

    // How many reports the last Executar has shown or printed.
    [[nodiscard]] std::size_t Produzidos() const { return produzidos_; }

    // What the pages that the last Executar has produced do not show as expected, in the order of
    // the list and each sentence once; nothing without a RevisorDePaginas.
    [[nodiscard]] const std::vector<std::string>& Avisos() const { return avisos_; }

    // The declaration's first reference date; a Null date is in 1899. Error 3021 when there is no
    // such declaration.
    static Data Referencia(BancoDados& banco, std::int32_t NumeroDRQ);

  private:
    void Oferecer(frmImpressaoRelatorios& dialogo, std::int32_t opcoes, int ano) const;

    JanelaSelecao& janela_;
    std::vector<EntradaSelecao> entradas_;
    std::string_view emProducao_;
    std::size_t produzidos_ = 0;
    std::vector<std::string> avisos_;
};

}  // namespace tarvo
