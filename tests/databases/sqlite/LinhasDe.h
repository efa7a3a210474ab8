// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/support/Roteiro.h"

namespace tarvo {

// The rows from the current one on, one a line: the values of the columns, which are named as the
// values stand, "IE|Tipo".
inline std::string LinhasDe(Recordset& registros, const std::string& colunas) {
    std::string linhas;
    for (const auto& linha : apoio::LinhasDe(registros, colunas)) {
        linhas += (linhas.empty() ? "" : "\n") + linha;
    }
    return linhas;
}

// The rows of a query.
inline std::string LinhasDe(BancoDados& banco, const std::string& consulta,
                            const std::string& colunas) {
    return LinhasDe(*banco.OpenRecordset(consulta, TipoRecordset::ForwardOnly), colunas);
}

// The number of the error that an action ends with.
template <class Acao>
int NumeroDoErro(Acao&& acao) {
    return static_cast<int>(apoio::ErroDe(acao).Numero());
}

}  // namespace tarvo
