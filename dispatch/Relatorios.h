#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "data/BancoDados.h"
#include "data/Publico.h"
#include "document/Visualizador.h"

namespace tarvo {

class frmImpressaoRelatorios;
class JanelaSelecao;
class RelatorioDeclaracao;
struct EntradaCatalogo;

// The entry class: lets the user choose reports of one declaration and shows or prints them. Owns
// one object of each report of the catalogue; previews stay open until the next Executar or until
// this object is released. Belongs to the host's user-interface thread; Executar must not be
// entered again while it runs.
class TARVO_PUBLICO Relatorios {
  public:
    // What ambiente points to and janela outlive this object.
    Relatorios(const Ambiente& ambiente, JanelaSelecao& janela);
    // With a catalogue of the caller's, which outlives this object too.
    Relatorios(const Ambiente& ambiente, JanelaSelecao& janela,
               std::span<const EntradaCatalogo> catalogo);
    // Releases the reports in the catalogue's order, and with them their previews.
    ~Relatorios();
    Relatorios(const Relatorios&) = delete;
    Relatorios& operator=(const Relatorios&) = delete;

    // Hides earlier previews, shows the selection dialog with the entries ticked whose bits are set
    // in OpcoesSelecionadas (bit i is entry i; others are ignored), then builds each chosen report
    // and shows or prints it before the next is built. Error 3021, before the dialog, when there
    // is no such declaration; 445 when a chosen report is not in this build. Any error ends
    // the call; what was produced before it stays.
    void Executar(BancoDados& BancoDados, const std::string& IE, std::int32_t NumeroDRQ,
                  std::int32_t OpcoesSelecionadas);

    // True when the declaration's first reference date is in 2002 or later; a Null date is in
    // 1899. Error 3021 when there is no such declaration.
    static bool ReferenciaDesde2002(BancoDados& BancoDados, std::int32_t NumeroDRQ);

  private:
    void OcultarTodos();
    void Produzir(const frmImpressaoRelatorios& dialogo, std::size_t indice, BancoDados& banco,
                  const std::string& IE, std::int32_t NumeroDRQ);

    JanelaSelecao& janela_;
    const EntradaCatalogo* catalogo_;                               // its first entry
    std::vector<std::unique_ptr<RelatorioDeclaracao>> relatorios_;  // one for each
};

}  // namespace tarvo
