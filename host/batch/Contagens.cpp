// SPDX-License-Identifier: MIT
#include "host/batch/Contagens.h"

namespace tarvo::host {

std::string Contados(std::size_t quantos, const char* um, const char* varios) {
    return std::to_string(quantos) + " " + (quantos == 1 ? um : varios);
}

std::string Listados(const std::set<std::string>& nomes) {
    constexpr std::size_t PorNome = 20;
    std::string lista;
    std::size_t quantos = 0;
    for (const auto& nome : nomes) {
        if (quantos == PorNome) {
            return lista + " e mais " + std::to_string(nomes.size() - PorNome);
        }
        lista += (quantos++ == 0 ? "" : ", ") + nome;
    }
    return lista;
}

}  // namespace tarvo::host
