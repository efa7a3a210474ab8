// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "data/LeitoresDeCampo.h"
#include "tests/support/Apoio.h"

namespace tarvo {

// The rows from the current one on, one a line: the values of the columns, which are named as the
// values stand, "IE|Tipo".
inline std::string LinhasDe(Recordset& registros, const std::string& colunas) {
    std::string linhas;
    for (; !registros.EOF_(); registros.MoveNext()) {
        linhas += linhas.empty() ? "" : "\n";
        std::istringstream nomes(colunas);
        for (std::string nome, barra; std::getline(nomes, nome, '|'); barra = "|") {
            const Valor valor = registros.Fields(nome);
            linhas += barra + (EhNulo(valor) ? "Null" : TextoCampo(valor));
        }
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
