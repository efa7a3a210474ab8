// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "document/Relatorio.h"

// The eighteen reports of the selection list, in list order: the one place that ties an entry's
// code and label to its report class.
namespace tarvo {

struct EntradaCatalogo {
    std::string_view codigo;  // "01", "11A"
    std::string_view rotulo;  // as the selection dialog shows it
    std::string_view classe;  // "RelatorioCadastro"
    std::unique_ptr<RelatorioDeclaracao> (*criar)(const Ambiente& ambiente);
    int desde = 0;  // offered for declarations whose reference is of this year or later
};

std::span<const EntradaCatalogo> Catalogo();

}  // namespace tarvo
