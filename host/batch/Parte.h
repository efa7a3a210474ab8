// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

// The disjoint parts of a batch that together are the whole.
namespace tarvo::host {

// The numero-th of partes, from 1; the only one is the whole batch.
struct Parte {
    std::int32_t numero = 1;
    std::int32_t partes = 1;

    auto operator<=>(const Parte&) const = default;
};

constexpr std::int32_t MaisPartes = 100'000;

// "2/8"
std::string TextoDaParte(const Parte& parte);
// "resumo-2-de-8.csv"; "resumo.csv" of a whole batch.
std::string NomeDoResumo(const Parte& parte);

// Whose summaries a folder holds, in order. Errors: those of Arquivos.h.
std::vector<Parte> PartesNaPasta(const std::filesystem::path& pasta);

}  // namespace tarvo::host
