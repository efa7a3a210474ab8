// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

#include "document/Relatorio.h"
#include "reports/FaixasCFOP.h"
#include "reports/FormatoDeTabela.h"

namespace tarvo {

// What differs between the CFOP summaries; constant data of the report classes.
struct TipoResumo {
    IdentidadeRelatorio identidade;
    FormatoDeTabela formato;
    const std::span<const FaixaCFOP>& faixasAntigas;
    const std::span<const FaixaCFOP>& faixasNovas;
    std::string_view grupos;  // CFOP groups of the total, one digit each
    std::string_view tituloComImposto;
    std::string_view tituloSemImposto;
    std::string_view tituloImposto;
};

// The pages of the CFOP summaries: landscape, 14 lines.
constexpr FormatoDeTabela FormatoDeResumo(std::string_view tabela, std::string_view titulo) {
    return {.tabela = tabela,
            .cabecalho = {.titulo = titulo, .largura = LarguraPaisagem},
            .yPrimeiraLinha = 7.7,
            .yUltimaLinha = 15.7,
            .yRodape = 16.3};
}

}  // namespace tarvo
