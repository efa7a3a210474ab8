#pragma once

#include <cstdint>
#include <optional>
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

// Those that the command line's filters leave, by number. In a database that does not tell whose
// the declarations are, all are IE's; without IE UsoErrado.
std::vector<DeclaracaoDoLote> EscolherDeclaracoes(BancoDados& banco, const Argumentos& argumentos);

// The declaration of that number; nullptr when it was not chosen.
const DeclaracaoDoLote* Procurar(const std::vector<DeclaracaoDoLote>& declaracoes,
                                 std::int32_t NroDRQ);

// "250114377019-101": one part of a path, whatever the registration holds.
std::string NomeDaDeclaracao(const DeclaracaoDoLote& declaracao);

// The file of a report that the summary names, relative to the batch's folder; of PNG pages the
// first. With unico, codigo is CodigoUnico.
constexpr const char* CodigoUnico = "todos";
std::string ArquivoNoLote(const DeclaracaoDoLote& declaracao, const std::string& codigo,
                          const FormatoDeSaida& formato);

}  // namespace tarvo::host
