// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// The words of a query.
namespace tarvo::sqlite {

enum class TipoSimbolo { Palavra, NomeEntreColchetes, Texto, Numero, Sinal, Fim };

struct Simbolo {
    TipoSimbolo tipo = TipoSimbolo::Fim;
    std::string texto;        // without quotes and brackets, doubled quotes made single
    std::size_t posicao = 0;  // byte offset in the query
};

// The query's words, ended by one of type Fim. Error 3075 for a character that begins none and
// for a text or name that is never closed.
std::vector<Simbolo> LerSimbolos(std::string_view consulta);

// Error 3075 with the place: its number, counted in characters from 1, and the text found there.
[[noreturn]] void LancarErroDeSintaxe(std::string_view consulta, std::size_t posicao,
                                      std::string_view problema);

}  // namespace tarvo::sqlite
