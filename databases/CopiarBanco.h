#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "data/Publico.h"
#include "databases/OrigemBanco.h"

namespace tarvo {

// Which declarations are copied; without a choice all of them. The catalogues always come along.
struct SelecaoDaCopia {
    std::optional<std::string> IE;
    std::optional<std::int32_t> NroDRQ;
};

struct ResumoDaCopia {
    std::size_t tabelas = 0;
    std::size_t linhas = 0;
};

// Copies the declaration tables of a database into a new SQLite file, with just the columns that
// they have, their rows in order and their values as they are. The file appears once it is
// complete. Errors: those of CriarBanco; 3021 when no declaration or taxpayer was chosen; 3219 for
// a table whose keys are doubled or missing.
TARVO_PUBLICO ResumoDaCopia CopiarBanco(const OrigemBanco& origem,
                                        const std::filesystem::path& destino,
                                        const SelecaoDaCopia& selecao);

}  // namespace tarvo
