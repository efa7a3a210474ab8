// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "data/Data.h"
#include "data/Publico.h"
#include "document/Ambiente.h"

// The host's current reference period: a per-user setting that holds month/year.
namespace tarvo {

namespace AjusteRefAtual {
constexpr std::string_view Aplicacao = "Tarvo";
constexpr std::string_view Secao = "pRef";
constexpr std::string_view Chave = "RefAtual";
}  // namespace AjusteRefAtual

// As it stands; empty when it is not set.
inline std::string LerRefAtual(const Configuracoes& configuracoes) {
    using namespace AjusteRefAtual;
    return configuracoes.Ler(Aplicacao, Secao, Chave, "");
}

// Day 20 of a month given as "1/2003", "01/2003" or "01/03" (years 00 to 29 are 20xx, 30 to 99 are
// 19xx). Error 13 for any other text.
TARVO_PUBLICO Data DataDeReferencia(std::string_view mesAno);

// Whether the current reference period is later than December 2002, the last month of the
// three-digit CFOP codes. Error 13 when the setting holds no month; an absent setting, or an
// absent store, holds none.
TARVO_PUBLICO bool ReferenciaUsaCFOPsNovos(const Configuracoes* configuracoes);

}  // namespace tarvo
