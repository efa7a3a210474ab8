#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "data/Publico.h"

// The behaviour of the selection dialog, apart from the window that shows it.
namespace tarvo {

struct EntradaCatalogo;

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
    explicit ListaSelecao(std::span<const EntradaCatalogo> catalogo);

    [[nodiscard]] std::size_t Quantidade() const { return entradas_.size(); }
    [[nodiscard]] std::string_view Rotulo(std::size_t posicao) const;
    // Index of the entry's report in the catalogue.
    [[nodiscard]] std::size_t Relatorio(std::size_t posicao) const;
    [[nodiscard]] bool Selecionada(std::size_t posicao) const;
    void Selecionar(std::size_t posicao, bool selecionada);
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
    std::size_t foco_ = 0;
};

class JanelaSelecao;

// The dialog. Its window calls the cmd operations when their buttons are pressed.
class TARVO_PUBLICO frmImpressaoRelatorios {
  public:
    explicit frmImpressaoRelatorios(std::span<const EntradaCatalogo> catalogo);

    ListaSelecao lstSelecao;
    std::int32_t lngModoSaida = ModoSaida::Nenhum;

    // Shows the window; returns once it is hidden or closed.
    void ExibirModal(JanelaSelecao& janela);
    [[nodiscard]] bool Visivel() const { return visivel_; }

    // Both hide the dialog.
    void cmdVisualizar();
    void cmdImprimir();
    // Clears all entries when all are selected, otherwise selects all.
    void cmdSelecionarTodos();

  private:
    bool visivel_ = false;
};

// The window of the dialog, given by the host.
class TARVO_PUBLICO JanelaSelecao {
  public:
    virtual ~JanelaSelecao() = default;
    // Shows the dialog and returns once Visivel is false or the user has closed the window.
    virtual void ExibirModal(frmImpressaoRelatorios& dialogo) = 0;
};

}  // namespace tarvo
