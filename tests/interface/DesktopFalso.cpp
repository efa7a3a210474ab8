// SPDX-License-Identifier: MIT
#include "tests/interface/DesktopFalso.h"

#include <memory>
#include <thread>

#include "document/Conteudo.h"

namespace tarvo {
namespace teste {

DesktopFalso& ODesktopFalso() {
    static DesktopFalso desktop;
    return desktop;
}

namespace {

class VisualizadorFalso final : public Visualizador {
  public:
    ~VisualizadorFalso() override { VisualizadorFalso::Ocultar(); }
    void Exibir(const Conteudo& conteudo) override {
        ODesktopFalso().pedidos.push_back("Exibir " + conteudo.titulo);
        ODesktopFalso().abertas.insert(this);
    }
    void Ocultar() override { ODesktopFalso().abertas.erase(this); }
    void Imprimir(const Conteudo& conteudo, bool /*perguntar*/) override {
        ODesktopFalso().pedidos.push_back("Imprimir " + conteudo.titulo);
    }
};

class AreaFalsa final : public AreaDeTrabalho, public FabricaVisualizadores, public JanelaSelecao {
  public:
    [[nodiscard]] bool NestaThread() const override { return std::this_thread::get_id() == linha_; }
    [[nodiscard]] bool TemTela() const override { return ODesktopFalso().temTela; }
    FabricaVisualizadores& Visualizadores() override { return *this; }
    JanelaSelecao& Selecao() override { return *this; }
    void AoPedir(std::function<void(Pedido)> /*acao*/) override {}
    std::size_t AguardarJanelas(std::chrono::milliseconds /*tempo*/) override {
        return ODesktopFalso().abertas.size();
    }
    void ImprimirEm(const Conteudo& conteudo, const std::string& impressora) override {
        ODesktopFalso().pedidos.push_back("Imprimir " + conteudo.titulo + " em " + impressora);
    }
    std::unique_ptr<Visualizador> Criar() override { return std::make_unique<VisualizadorFalso>(); }
    void ExibirModal(frmImpressaoRelatorios& dialogo) override { ODesktopFalso().usuario(dialogo); }

  private:
    std::thread::id linha_ = std::this_thread::get_id();
};

}  // namespace
}  // namespace teste

AreaDeTrabalho& AbrirAreaDeTrabalho() {
    static teste::AreaFalsa area;
    return area;
}

}  // namespace tarvo
