// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

#include "data/Moeda.h"
#include "document/Relatorio.h"
#include "reports/FormatoDeTabela.h"

namespace tarvo {

class LinhasApuracao;

// How the balances are settled under a tax regime.
struct RegimeApuracao {
    std::string_view codigo;  // "01"
    std::string_view titulo;  // empty: no line of its own
    // Writes the block of deductions and hands back their amount; null: no block, no deductions.
    Moeda (*deduzir)(LinhasApuracao& linhas) = nullptr;
    bool fixadoAMaior = false;  // whether deductions above the debit balance have a line
};

// What differs between the assessments; constant data of the report classes.
struct TipoApuracao {
    IdentidadeRelatorio identidade;
    FormatoDeTabela formato;
    std::span<const std::string_view> colunasCFOP;  // columns of the CFOP details that count
    std::string_view gruposDebito;                  // CFOP groups, one digit each
    std::string_view gruposCredito;
    bool opProprias;               // which of the sub-items count
    std::string_view saldoCredor;  // the declaration's credit balance of the previous period
    // By the declaration's tax regime, the last for every other code; a single one for all.
    std::span<const RegimeApuracao> regimes;
};

// The pages of the assessments: portrait, 31 lines.
constexpr FormatoDeTabela FormatoDeApuracao(std::string_view tabela, std::string_view titulo) {
    return {.tabela = tabela,
            .cabecalho = {.titulo = titulo},
            .yPrimeiraLinha = 5.9,
            .yUltimaLinha = 24.4,
            .yRodape = YRodape};
}

}  // namespace tarvo
