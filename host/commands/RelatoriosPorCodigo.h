// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/BancoDados.h"
#include "document/Relatorio.h"
#include "output/FormatoDeSaida.h"

// The reports that the command can build, by their codes: the entries of the selection list, and
// the payment slip.
namespace tarvo::host {

constexpr std::string_view CodigoVELO = "VELO";

// The words of a list as the user writes it ("01, 11a,velo"), in the order given, each once; codes,
// and TODOS, in capitals.
std::vector<std::string> LerCodigos(std::string_view lista);
bool ExisteCodigo(std::string_view codigo);

// The codes that the selection dialog offers for a declaration. Error 3021 when it does not exist.
std::vector<std::string> CodigosOferecidos(BancoDados& banco, std::int32_t NumeroDRQ);

constexpr bool PrecisaDeContribuinte(std::string_view codigo) {
    return codigo != CodigoVELO;
}
constexpr bool PrecisaDeDeclaracao(std::string_view codigo) {
    return codigo != "01" && codigo != CodigoVELO;
}

struct Alvo {
    std::string IE;
    std::int32_t NumeroDRQ = 0;
};

// The built report of that code (one that exists). The report's own errors reach the
// caller. What ambiente points to outlives it.
std::unique_ptr<Relatorio> ConstruirRelatorio(std::string_view codigo, BancoDados& banco,
                                              const Alvo& alvo, const Ambiente& ambiente);

// Its document as an output takes it.
DocumentoDeSaida DocumentoDe(const Relatorio& relatorio);

// "10-RelatorioApuracaoOpProp": the name of a report's files without their ending.
std::string NomeDoArquivo(std::string_view codigo);

}  // namespace tarvo::host
