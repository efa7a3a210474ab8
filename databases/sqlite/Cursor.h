// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "databases/sqlite/Lexico.h"

namespace tarvo::sqlite {

// A place among the words of a query, moved forward as they are taken. Keywords compare without
// regard to case; what does not stand where it must is error 3075 with the place.
class Cursor {
  public:
    explicit Cursor(std::string_view consulta)
        : consulta_(consulta), simbolos_(LerSimbolos(consulta)) {}

    [[nodiscard]] const Simbolo& Atual() const { return Adiante(0); }
    // The word so many places on; the last one is of type Fim.
    [[nodiscard]] const Simbolo& Adiante(std::size_t quantos) const;
    [[nodiscard]] bool EhPalavra(std::string_view palavra) const;
    [[nodiscard]] bool EhSinal(std::string_view sinal, std::size_t adiante = 0) const;
    // A name in brackets or a word that is no keyword.
    [[nodiscard]] bool EhNome() const;

    const Simbolo& Tomar() { return simbolos_[i_++]; }
    bool TomarPalavra(std::string_view palavra);
    bool TomarSinal(std::string_view sinal);
    void ExigirPalavra(std::string_view palavra);
    void ExigirSinal(std::string_view sinal);
    std::string LerNome(std::string_view esperado);

    // What lerUm reads, once or more, separated by commas.
    template <class LerUm>
    auto LerLista(LerUm lerUm) {
        std::vector<decltype(lerUm())> lista;
        do {
            lista.push_back(lerUm());
        } while (TomarSinal(","));
        return lista;
    }

    [[noreturn]] void Falhar(std::string_view problema) const {
        FalharEm(Atual().posicao, problema);
    }
    [[noreturn]] void FalharEm(std::size_t posicao, std::string_view problema) const {
        LancarErroDeSintaxe(consulta_, posicao, problema);
    }

  private:
    std::string_view consulta_;
    std::vector<Simbolo> simbolos_;
    std::size_t i_ = 0;
};

}  // namespace tarvo::sqlite
