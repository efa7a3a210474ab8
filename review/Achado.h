// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "data/Publico.h"

namespace tarvo {

// Something in a declaration database that does not print as its user expects: rows that pages
// leave out, split, repeat or show under another code, or a whole page that says other than it
// seems to.
struct Achado {
    std::string IE;                      // as the caller named the taxpayer; may be empty
    std::optional<std::int32_t> NroDRQ;  // absent: not about one declaration
    std::string relatorio;               // code, "05"; empty: no report, or all of them
    std::string tabela;                  // empty when motivo says everything
    std::size_t linhas = 0;              // rows of tabela; 0: not about rows
    std::string motivo;                  // Portuguese, one line, with the first rows' codes

    friend bool operator==(const Achado&, const Achado&) = default;
};

// The finding on one line, without taxpayer and declaration: "relatório 05, tblDetalhesInterUFs, 2
// linhas: estado sem linha em tblEstados (98, 99)".
TARVO_PUBLICO std::string TextoDoAchado(const Achado& achado);

}  // namespace tarvo
