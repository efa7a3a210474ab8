// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "data/BancoDados.h"
#include "data/Publico.h"

// The taxpayers and declarations of a database, as hosts list and offer them.
namespace tarvo {

struct Contribuinte {
    std::string IE;
    std::string razaoSocial;
    std::string CNPJ;
};

struct Declaracao {
    std::optional<std::string> IE;  // absent when the database does not tell whose it is, though
                                    // it has several taxpayers
    std::int32_t NroDRQ = 0;
    Data ref1;
    std::string referencia;  // "07/2003"
    std::string regime;      // code as stored, "01"
    std::string tipo;        // "Normal"; empty for an unknown type
    bool consistente = false;
};

// In Portuguese order of the company's name.
TARVO_PUBLICO std::vector<Contribuinte> LerContribuintes(BancoDados& banco);
// In order of reference, then number.
TARVO_PUBLICO std::vector<Declaracao> LerDeclaracoes(BancoDados& banco);
// The same one by one, for who does not keep them.
TARVO_PUBLICO void PercorrerDeclaracoes(
    BancoDados& banco, const std::function<void(const Declaracao& declaracao)>& visitar);

TARVO_PUBLICO bool ExisteContribuinte(BancoDados& banco, const std::string& IE);
TARVO_PUBLICO bool ExisteDeclaracao(BancoDados& banco, std::int32_t NroDRQ);

}  // namespace tarvo
