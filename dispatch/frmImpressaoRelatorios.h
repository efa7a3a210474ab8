// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/Publico.h"

// The behaviour of the selection dialog, apart from the window that shows it.
namespace tarvo {

// What the dialog's user asked for; the numbers are lngModoSaida's.
namespace ModoSaida {
constexpr std::int32_t Nenhum = 0;
constexpr std::int32_t Visualizar = 1;
constexpr std::int32_t Imprimir = 2;
}  // namespace ModoSaida

// The list of the dialog. Positions count from 0 and move up when an entry is removed; the report
// of an entry stays. A position outside the list is std::out_of_range.
class TARVO_PUBLICO ListaSelecao {
  public:
    // Below the others. rotulo outlives the list.
    void Acrescentar(std::string_view rotulo, bool selecionada = false);
    [[nodiscard]] std::size_t Quantidade() const { return entradas_.size(); }
    [[nodiscard]] std::string_view Rotulo(std::size_t posicao) const {
        return entradas_.at(posicao).rotulo;
    }
    // Which of all that were ever added the entry is, counted from 0.
    [[nodiscard]] std::size_t Relatorio(std::size_t posicao) const {
        return entradas_.at(posicao).relatorio;
    }
    [[nodiscard]] bool Selecionada(std::size_t posicao) const {
        return entradas_.at(posicao).selecionada;
    }
    void Selecionar(std::size_t posicao, bool selecionada) {
        entradas_.at(posicao).selecionada = selecionada;
    }
    // The reports that are offered, and those that are selected: bit i is the entry that was added
    // as the i-th, counted from 0.
    [[nodiscard]] std::uint32_t Oferecidas() const;
    [[nodiscard]] std::uint32_t Marcadas() const;
    // The entries below keep their labels and marks.
    void Remover(std::size_t posicao);
    [[nodiscard]] std::size_t Foco() const { return foco_; }
    void Focar(std::size_t posicao);

  private:
    struct Entrada {
        std::string_view rotulo;
        std::size_t relatorio;
        bool selecionada;
    };
    std::vector<Entrada> entradas_;
    std::size_t acrescentadas_ = 0;
    std::size_t foco_ = 0;
};

class JanelaSelecao;

// The dialog. Its window calls the cmd operations when their buttons are pressed.
class TARVO_PUBLICO frmImpressaoRelatorios {
  public:
    frmImpressaoRelatorios() = default;
    // Unloads the window that has shown it.
    ~frmImpressaoRelatorios();
    frmImpressaoRelatorios(const frmImpressaoRelatorios&) = delete;
    frmImpressaoRelatorios& operator=(const frmImpressaoRelatorios&) = delete;

    // Whose declaration it is, in words, for the window to show; may be empty.
    std::string declaracao;
    // The same as the beginning of a file's name, "DRQ-250114377019-2003-07"; may be empty.
    std::string nomeDeArquivo;
    ListaSelecao lstSelecao;
    std::int32_t lngModoSaida = ModoSaida::Nenhum;

    // Shows the window, which outlives this; returns once it is hidden or closed.
    void ExibirModal(JanelaSelecao& janela);
    [[nodiscard]] bool Visivel() const { return visivel_; }

    // Both hide the dialog.
    void cmdVisualizar();
    void cmdImprimir();
    // Clears all entries when all are selected, otherwise selects all.
    void cmdSelecionarTodos();

  private:
    bool visivel_ = false;
    JanelaSelecao* janela_ = nullptr;
};

// The window of the dialog, given by the host.
class TARVO_PUBLICO JanelaSelecao {
  public:
    virtual ~JanelaSelecao() = default;
    // Shows the dialog and returns once Visivel is false or the user has closed the window.
    virtual void ExibirModal(frmImpressaoRelatorios& dialogo) = 0;
    // The reports that it led to are produced, or an error has kept them from it.
    virtual void Descarregar() noexcept {}
};

}  // namespace tarvo
