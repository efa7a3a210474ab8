#pragma once

#include "desktop/printing/RodadaDeImpressao.h"
#include "document/Ambiente.h"

namespace tarvo {

class AndamentoQt;
class ConfiguracoesIni;

// Makes the preview windows of the documents and prints them through the system's print queue.
class FabricaVisualizadoresQt final : public FabricaVisualizadores {
  public:
    // Both may be null and outlive every preview: where windows keep their place, and the progress
    // window that goes when a document is shown or printed.
    explicit FabricaVisualizadoresQt(ConfiguracoesIni* preferencias = nullptr,
                                     AndamentoQt* andamento = nullptr)
        : preferencias_(preferencias), andamento_(andamento) {}

    std::unique_ptr<Visualizador> Criar() override;

    // Whether a preview has something on its way to the printer.
    [[nodiscard]] static bool Imprimindo();
    // Between the two, documents that are printed make one run.
    void ComecarRodada() { rodada_.Comecar(); }
    // Says over janela what was printed where.
    void ConcluirRodada(QWidget* janela) { rodada_.Concluir(janela); }

  private:
    ConfiguracoesIni* preferencias_;
    AndamentoQt* andamento_;
    RodadaDeImpressao rodada_;
};

}  // namespace tarvo
