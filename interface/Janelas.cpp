// SPDX-License-Identifier: MIT
#include "interface/Janelas.h"

#include <dlfcn.h>

#include <atomic>
#include <mutex>
#include <string>

#include "data/CodigosDeErros.h"

namespace tarvo::c {

namespace {

std::atomic<AreaDeTrabalho*> Aberta = nullptr;

AreaDeTrabalho& Abrir() {
    static std::mutex umaVez;
    const std::scoped_lock trava(umaVez);
    if (AreaDeTrabalho* area = Aberta; area != nullptr) {
        return *area;
    }
    // Kept to the end of the process: its windows' classes cannot be unloaded.
    void* biblioteca = dlopen(TARVO_BIBLIOTECA_DESKTOP, RTLD_NOW | RTLD_NODELETE);
    if (biblioteca == nullptr) {
        throw Erro(NumeroErro::AcaoNaoSuportada,
                   std::string("Esta instalação não tem janelas nem impressão (pacote "
                               "librelatoriostarvo-desktop1): ") +
                       dlerror());
    }
    auto* abrir =
        reinterpret_cast<decltype(&AbrirAreaDeTrabalho)>(dlsym(biblioteca, "AbrirAreaDeTrabalho"));
    if (abrir == nullptr) {
        throw Erro(NumeroErro::AcaoNaoSuportada,
                   "A biblioteca das janelas não é desta versão: " TARVO_BIBLIOTECA_DESKTOP);
    }
    AreaDeTrabalho& area = abrir();
    Aberta = &area;
    return area;
}

class FabricaSobDemanda final : public FabricaVisualizadores {
  public:
    std::unique_ptr<Visualizador> Criar() override {
        return ExigirAreaDeTrabalho().Visualizadores().Criar();
    }
};

class JanelaSobDemanda final : public JanelaSelecao {
  public:
    void ExibirModal(frmImpressaoRelatorios& dialogo) override {
        ExigirAreaDeTrabalho().Selecao().ExibirModal(dialogo);
    }
    void Descarregar() noexcept override { Aberta.load()->Selecao().Descarregar(); }
};

}  // namespace

AreaDeTrabalho& ExigirAreaDeTrabalho() {
    AreaDeTrabalho& area = Abrir();
    if (!area.NestaThread()) {
        throw Erro(NumeroErro::AcaoNaoSuportada,
                   "As janelas e a impressão pertencem a outra linha de execução (thread) deste "
                   "programa.");
    }
    return area;
}

AreaDeTrabalho* AreaDeTrabalhoAberta() {
    return Aberta;
}

FabricaVisualizadores& VisualizadoresSobDemanda() {
    static FabricaSobDemanda fabrica;
    return fabrica;
}

JanelaSelecao& SelecaoSobDemanda() {
    static JanelaSobDemanda janela;
    return janela;
}

}  // namespace tarvo::c
