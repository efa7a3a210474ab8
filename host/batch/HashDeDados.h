// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "data/BancoDados.h"

// XXH3 hashes of 128 bits, as the hexadecimal digits that xxh128sum prints. They tell changes and
// damage, not forgeries.
namespace tarvo::host {

// Of the tables that all declarations share.
std::string HashDosDadosComuns(BancoDados& banco);

// Of everything in the database from which a declaration's pages are made, in its order; comuns:
// the hash of what all share.
std::string HashDaDeclaracao(BancoDados& banco, const std::string& IE, std::int32_t NroDRQ,
                             std::string_view comuns);

// Of 64 bits.
std::uint64_t HashCurto(std::string_view texto);

std::string HashDeTexto(std::string_view texto);

// Of the files' bytes, one after the other; empty when one cannot be read.
std::string HashDeArquivos(std::span<const std::filesystem::path> arquivos);

}  // namespace tarvo::host
