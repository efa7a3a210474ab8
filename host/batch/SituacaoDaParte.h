// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "host/batch/LinhaResumo.h"
#include "host/batch/Parte.h"

namespace tarvo::host {

// What the summary of a part of a batch says, its lines taken together.
struct SituacaoDaParte {
    Parte parte;
    std::filesystem::path pasta = {};
    std::optional<LinhaResumo> lote = {};  // see CodigoLote; none: it did not begin
    bool concluida = false;
    std::size_t declaracoes = 0;             // that it has
    std::size_t terminadas = 0;              // of these
    std::set<std::string> porTerminar = {};  // begun, by NomeDaDeclaracao
    std::size_t arquivos = 0;
    std::size_t paginas = 0;
    std::uintmax_t bytes = 0;
    std::map<std::pair<std::int32_t, std::string>, LinhaResumo> falhas =
        {};  // by number and report
};

// Error 5 for what is no summary; the errors of Arquivos.h.
SituacaoDaParte LerSituacao(const std::filesystem::path& pasta, const Parte& parte);

}  // namespace tarvo::host
