// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "output/pdf/structure/ArvoreDeEstrutura.h"

namespace tarvo::pdf {

// The marks around what a page's content stream draws, which say of which element it is the
// content, or that it is decoration. What follows on each other and is of one element shares one.
class MarcasDaPagina {
  public:
    // colocados: of the document's elements, which must outlive this; nullptr: there are no marks.
    explicit MarcasDaPagina(const std::vector<Colocacao>* colocados) : colocados_(colocados) {}

    // For a new page.
    void Reiniciar();
    // Whose content comes next: of an element, or Estrutura::Decoracao.
    void Pertencer(std::uint32_t dono);
    // Appends what must stand before the next operators, and behind the last.
    void Abrir(std::string& operadores);
    void Fechar(std::string& operadores);
    // The same for decoration that stands alone.
    void AbrirDecoracao(std::string& operadores) const;
    void FecharDecoracao(std::string& operadores) const;

    // That a picture has been drawn for the owner.
    void Retratar(const std::array<Centesimos, 4>& caixa, std::string_view descricao);
    // Of this page so far.
    [[nodiscard]] const ConteudoMarcado& Marcado() const { return marcado_; }

  private:
    const std::vector<Colocacao>* colocados_;
    ConteudoMarcado marcado_;
    std::uint32_t dono_ = Estrutura::Decoracao;
    std::uint32_t aberto_ = Estrutura::Decoracao;  // whose mark is open
    bool ha_ = false;                              // whether one is
};

}  // namespace tarvo::pdf
