// SPDX-License-Identifier: MIT
#include "review/Achado.h"

namespace tarvo {

std::string TextoDoAchado(const Achado& achado) {
    std::string onde;
    const auto juntar = [&](const std::string& parte) {
        onde += (onde.empty() ? "" : ", ") + parte;
    };
    if (!achado.relatorio.empty()) {
        juntar("relatório " + achado.relatorio);
    }
    if (!achado.tabela.empty()) {
        juntar(achado.tabela);
    }
    if (achado.linhas > 0) {
        juntar(std::to_string(achado.linhas) + (achado.linhas == 1 ? " linha" : " linhas"));
    }
    return (onde.empty() ? "" : onde + ": ") + achado.motivo;
}

}  // namespace tarvo
