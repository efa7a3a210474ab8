// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/AreaDeTrabalho.h"
#include "desktop/printing/RodadaDeImpressao.h"

namespace tarvo {

class ConfiguracoesIni;
class JanelaDeAbas;
class JanelaVisualizacao;
struct Conteudo;

// What a new run leaves of the previews of the one before: nothing; the windows of the reports that
// it shows again; these with the page that they show.
enum class Permanece { Nada, Janelas, Paginas };

// The previews that are open, which are one thing to their user: each in a window of its own or all
// in one window with a tab each, as the user likes it, printed and saved together.
class GrupoDePrevias {
  public:
    // preferencias may be null; it outlives the object, and this outlives every preview.
    explicit GrupoDePrevias(ConfiguracoesIni* preferencias);
    ~GrupoDePrevias();
    GrupoDePrevias(const GrupoDePrevias&) = delete;
    GrupoDePrevias& operator=(const GrupoDePrevias&) = delete;

    // Between the two, documents are one run: printed together, saved together under one name, and
    // shown in the windows that permanece leaves.
    void Comecar(Permanece permanece = Permanece::Nada);
    // Says over janela what was printed where, unless dizer is false, and closes the previews that
    // the run has not shown again.
    void Concluir(QWidget* janela, bool dizer = true);
    [[nodiscard]] Permanece OQuePermanece() const { return permanece_; }
    // Between the two, one that is to be hidden waits for the end of the run; true when it does.
    bool Adiar(JanelaVisualizacao& previa);

    // Puts it on the screen, in a tab or a window, in front of the others; one whose window the run
    // has left stays where it is.
    void Mostrar(JanelaVisualizacao& previa);
    // It shows nothing any more.
    void Retirar(JanelaVisualizacao& previa);
    [[nodiscard]] std::size_t Abertas() const { return abertas_.size(); }

    [[nodiscard]] bool EmAbas() const { return emAbas_; }
    // At once for the open ones, of which naFrente stays in front, and from now on.
    void DefinirEmAbas(bool emAbas, JanelaVisualizacao& naFrente);

    // All that are open, asking once for the printer or the place. Over janela it is said what was
    // done; errors as those of printing and of files.
    void ImprimirTodos(QWidget* janela);
    void SalvarTodos(QWidget* janela);
    void SalvarCadaUm(QWidget* janela);

    // Beginning of the names of files, "DRQ-250114377019-2003-07".
    std::string nomeDeArquivo;
    // What their users ask of the host; null where it builds nothing.
    void AoPedir(std::function<void(Pedido)> acao);
    [[nodiscard]] bool Atende() const { return aoPedir_ != nullptr; }
    void Pedir(Pedido pedido) const;
    // Prints one after the other.
    RodadaDeImpressao impressao;

  private:
    void EncerrarAdiadas();
    [[nodiscard]] QString NomeDeArquivo() const;

    ConfiguracoesIni* preferencias_;
    std::vector<JanelaVisualizacao*> abertas_;  // in the order in which they were shown
    std::vector<JanelaVisualizacao*> adiadas_;
    std::unique_ptr<JanelaDeAbas> abas_;
    Permanece permanece_ = Permanece::Nada;
    bool emAbas_ = false;
    std::function<void(Pedido)> aoPedir_;
};

}  // namespace tarvo
