#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/Funcoes.h"
#include "tests/apoio/Apoio.h"

namespace tarvo {

// The rows from the current one on: columns joined by "|", rows by a line break.
inline std::string LinhasDe(Recordset& registros, const std::vector<std::string>& colunas) {
    std::string linhas;
    for (; !registros.EOF_(); registros.MoveNext()) {
        linhas += linhas.empty() ? "" : "\n";
        for (std::size_t i = 0; i < colunas.size(); ++i) {
            const Valor valor = registros.Fields(colunas[i]);
            linhas += (i == 0 ? "" : "|") + (EhNulo(valor) ? "Null" : TextoCampo(valor));
        }
    }
    return linhas;
}

}  // namespace tarvo
