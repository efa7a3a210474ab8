// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/AndamentoQt.h"
#include "desktop/preview/GrupoDePrevias.h"
#include "document/Ambiente.h"

namespace tarvo {

class ConfiguracoesIni;

// Makes the preview windows of the documents and prints them through the system's print queue.
class FabricaVisualizadoresQt final : public FabricaVisualizadores {
  public:
    // Both may be null and outlive every preview: where windows keep their place, and the progress
    // window of the builds, which goes on while a document is made ready.
    explicit FabricaVisualizadoresQt(ConfiguracoesIni* preferencias = nullptr,
                                     AndamentoQt* andamento = nullptr)
        : preferencias_(preferencias), andamento_(andamento != nullptr ? *andamento : proprio_) {}

    std::unique_ptr<Visualizador> Criar() override;

    // Whether a preview has something on its way to the printer.
    [[nodiscard]] static bool Imprimindo();
    // Between the two, documents are one run: printed together, saved together under the name that
    // it is given, and shown in the windows that permanece leaves.
    void ComecarRodada(Permanece permanece = Permanece::Nada) { grupo_.Comecar(permanece); }
    void NomearRodada(const std::string& nomeDeArquivo) { grupo_.nomeDeArquivo = nomeDeArquivo; }
    // Says over janela what was printed where, unless dizer is false.
    void ConcluirRodada(QWidget* janela, bool dizer = true) { grupo_.Concluir(janela, dizer); }
    // What the previews ask of the host from now on; without it they do not offer it.
    void AoPedir(std::function<void(Pedido)> acao) { grupo_.AoPedir(std::move(acao)); }
    // Previews that are open.
    [[nodiscard]] std::size_t Abertas() const { return grupo_.Abertas(); }

  private:
    ConfiguracoesIni* preferencias_;
    AndamentoQt proprio_;
    AndamentoQt& andamento_;
    GrupoDePrevias grupo_{preferencias_};
};

}  // namespace tarvo
