// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

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
    std::vector<std::string> avisos;  // what of the destination the source lacks, a sentence each
};

// Copies the declaration tables of a database, their rows in order and their values as they are:
// into a new SQLite file, with just the columns that the source has; or, where destino is the
// address of a server, into its tables, which must all be empty. All of it appears when it is
// complete. The origin's companion is asked all the time.
//
// Errors: those of CriarBanco; 18 cancelled; 3021 when no declaration or taxpayer was chosen; 3219
// for a table whose keys are doubled or missing. Of a server those of AbrirBanco; 3204 tables have
// rows; 3078 and 3061 it lacks a table or column that has something in it; 3421 a value that its
// type cannot hold, with its row; 3027 it is for reading alone.
TARVO_PUBLICO ResumoDaCopia CopiarBanco(const OrigemBanco& origem,
                                        const std::filesystem::path& destino,
                                        const SelecaoDaCopia& selecao);

}  // namespace tarvo
