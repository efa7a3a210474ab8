// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "data/BancoDados.h"
#include "host/commands/Argumentos.h"

// Which declarations a batch is about, and what their files are called.
namespace tarvo::host {

// Small: a batch holds one for each declaration.
struct DeclaracaoDoLote {
    std::int32_t NroDRQ = 0;
    std::string IE;  // empty when the database does not tell whose it is
    std::optional<Data> ref1;
};

// Those that the command line's filters and its part leave, by number, each once. In which part a
// declaration is depends on its number alone, wherever and whenever that is asked. In a database
// that does not tell whose the declarations are, all are IE's; without IE UsoErrado.
std::vector<DeclaracaoDoLote> EscolherDeclaracoes(BancoDados& banco, const Argumentos& argumentos);

// "250114377019-101": one part of a path, whatever the registration holds, and another one for
// every other declaration. It begins with a letter, a digit or "_".
std::string NomeDaDeclaracao(const DeclaracaoDoLote& declaracao);

// The first twenty by name, and how many more.
std::string Listados(const std::set<std::string>& nomes);

}  // namespace tarvo::host
