// SPDX-License-Identifier: MIT
#include "dispatch/frmImpressaoRelatorios.h"

namespace tarvo {

void ListaSelecao::Acrescentar(std::string_view rotulo, bool selecionada) {
    entradas_.push_back({rotulo, acrescentadas_++, selecionada});
}

std::uint32_t ListaSelecao::Oferecidas() const {
    std::uint32_t bits = 0;
    for (const auto& entrada : entradas_) {
        bits |= 1U << entrada.relatorio;
    }
    return bits;
}

std::uint32_t ListaSelecao::Marcadas() const {
    std::uint32_t bits = 0;
    for (const auto& entrada : entradas_) {
        bits |= entrada.selecionada ? 1U << entrada.relatorio : 0U;
    }
    return bits;
}

void ListaSelecao::Remover(std::size_t posicao) {
    static_cast<void>(entradas_.at(posicao));
    entradas_.erase(entradas_.begin() + static_cast<std::ptrdiff_t>(posicao));
    if (foco_ > posicao) {
        --foco_;
    }
}

void ListaSelecao::Focar(std::size_t posicao) {
    static_cast<void>(entradas_.at(posicao));
    foco_ = posicao;
}

frmImpressaoRelatorios::~frmImpressaoRelatorios() {
    if (janela_ != nullptr) {
        janela_->Descarregar();
    }
}

void frmImpressaoRelatorios::ExibirModal(JanelaSelecao& janela) {
    visivel_ = true;
    janela.ExibirModal(*this);
    visivel_ = false;
    janela_ = &janela;  // one that could not be shown has nothing to unload
}

void frmImpressaoRelatorios::cmdVisualizar() {
    lngModoSaida = ModoSaida::Visualizar;
    visivel_ = false;
}

void frmImpressaoRelatorios::cmdImprimir() {
    lngModoSaida = ModoSaida::Imprimir;
    visivel_ = false;
}

void frmImpressaoRelatorios::cmdSelecionarTodos() {
    bool todos = true;
    for (std::size_t i = 0; i < lstSelecao.Quantidade() && todos; ++i) {
        todos = lstSelecao.Selecionada(i);
    }
    for (std::size_t i = 0; i < lstSelecao.Quantidade(); ++i) {
        lstSelecao.Selecionar(i, !todos);
    }
}

}  // namespace tarvo
