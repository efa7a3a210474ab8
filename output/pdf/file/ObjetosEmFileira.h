// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo::pdf {

// Objects of about one length that come in great numbers and differ in few places, as an object
// stream under a predictor: each is a row, written as the difference to the one above. What is
// left are a few digits here and there: structure elements shrink to about two bytes, a fifth of
// what they take one after the other, in half of the time.
class ObjetosEmFileira {
  public:
    static constexpr std::size_t Maximo = 1000;  // more would make readers unpack much for one

    // The length of the rows for an object of that length; 0: too long for any.
    static std::size_t LarguraPara(std::size_t tamanho);

    explicit ObjetosEmFileira(std::size_t largura) : largura_(largura) {}

    void Acrescentar(int numero, std::string_view corpo);
    [[nodiscard]] const std::vector<int>& Numeros() const { return numeros_; }
    [[nodiscard]] std::string_view Corpo(std::size_t i) const;

    // Entries of the stream's dictionary.
    [[nodiscard]] std::string Dicionario() const;
    // The stream before it is compressed; valid until the next call.
    std::string_view Dados();
    void Esvaziar();

  private:
    [[nodiscard]] std::size_t FileirasDoIndice() const;

    std::size_t largura_;
    std::vector<int> numeros_;
    std::string corpos_;
    std::string linhas_;  // of the index
    std::string dados_;
};

}  // namespace tarvo::pdf
