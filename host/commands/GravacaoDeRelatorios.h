// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string_view>

#include "document/Relatorio.h"
#include "output/FormatoDeSaida.h"

// Built reports as files.
namespace tarvo::host {

// Where a command writes its files, and as what.
struct SaidaEmArquivos {
    std::filesystem::path pasta;
    const FormatoDeSaida* formato = nullptr;
    OpcoesDeSaida opcoes;
};

DocumentoDeSaida DocumentoDe(const Relatorio& relatorio);

// Writes a built report (see Gravar) into files that bear its name.
ResultadoDaSaida GravarRelatorio(std::string_view codigo, const Relatorio& relatorio,
                                 const SaidaEmArquivos& saida);

}  // namespace tarvo::host
