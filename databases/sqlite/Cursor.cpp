// SPDX-License-Identifier: MIT
#include "databases/sqlite/Cursor.h"

#include <algorithm>
#include <array>

#include "data/Textos.h"

namespace tarvo::sqlite {

namespace {

// Words that cannot name a table or column without brackets.
constexpr std::array<std::string_view, 25> Reservadas{
    "SELECT", "DISTINCT", "DISTINCTROW", "FROM",  "WHERE", "GROUP", "HAVING", "ORDER", "BY",
    "ASC",    "DESC",     "AS",          "INNER", "JOIN",  "ON",    "AND",    "OR",    "NOT",
    "LIKE",   "BETWEEN",  "IN",          "IS",    "NULL",  "TRUE",  "FALSE"};

bool MesmaPalavra(std::string_view texto, std::string_view palavra) {
    return std::ranges::equal(texto, palavra, {}, Minuscula, Minuscula);
}

}  // namespace

const Simbolo& Cursor::Adiante(std::size_t quantos) const {
    return simbolos_[std::min(i_ + quantos, simbolos_.size() - 1)];
}

bool Cursor::EhPalavra(std::string_view palavra) const {
    return Atual().tipo == TipoSimbolo::Palavra && MesmaPalavra(Atual().texto, palavra);
}

bool Cursor::EhSinal(std::string_view sinal, std::size_t adiante) const {
    return Adiante(adiante).tipo == TipoSimbolo::Sinal && Adiante(adiante).texto == sinal;
}

bool Cursor::EhNome() const {
    if (Atual().tipo == TipoSimbolo::NomeEntreColchetes) {
        return !Atual().texto.empty();
    }
    return Atual().tipo == TipoSimbolo::Palavra &&
           std::ranges::none_of(
               Reservadas, [this](auto palavra) { return MesmaPalavra(Atual().texto, palavra); });
}

bool Cursor::TomarPalavra(std::string_view palavra) {
    const bool achou = EhPalavra(palavra);
    i_ += achou ? 1 : 0;
    return achou;
}

bool Cursor::TomarSinal(std::string_view sinal) {
    const bool achou = EhSinal(sinal);
    i_ += achou ? 1 : 0;
    return achou;
}

void Cursor::ExigirPalavra(std::string_view palavra) {
    if (!TomarPalavra(palavra)) {
        Falhar("esperava " + std::string(palavra));
    }
}

void Cursor::ExigirSinal(std::string_view sinal) {
    if (!TomarSinal(sinal)) {
        Falhar("esperava \"" + std::string(sinal) + "\"");
    }
}

std::string Cursor::LerNome(std::string_view esperado) {
    if (!EhNome()) {
        Falhar("esperava " + std::string(esperado));
    }
    return Tomar().texto;
}

}  // namespace tarvo::sqlite
