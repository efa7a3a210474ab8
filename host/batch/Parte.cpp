// SPDX-License-Identifier: MIT
#include "host/batch/Parte.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "system/files/Arquivos.h"

namespace tarvo::host {

std::string TextoDaParte(const Parte& parte) {
    return std::to_string(parte.numero) + "/" + std::to_string(parte.partes);
}

std::string NomeDoResumo(const Parte& parte) {
    return parte.partes == 1 ? "resumo.csv"
                             : "resumo-" + std::to_string(parte.numero) + "-de-" +
                                   std::to_string(parte.partes) + ".csv";
}

std::vector<Parte> PartesNaPasta(const std::filesystem::path& pasta) {
    std::vector<Parte> partes;
    std::error_code erro;
    std::filesystem::directory_iterator item(pasta, erro);
    for (; !erro && item != std::filesystem::directory_iterator(); item.increment(erro)) {
        const std::string nome = item->path().filename().string();
        Parte parte;
        if (nome.starts_with("resumo-")) {
            char* fim = nullptr;
            parte.numero = static_cast<std::int32_t>(std::strtol(nome.c_str() + 7, &fim, 10));
            if (std::string_view(fim).starts_with("-de-")) {
                parte.partes = static_cast<std::int32_t>(std::strtol(fim + 4, nullptr, 10));
            }
        }
        // Of any other name these are no part's, or make another name.
        if (nome == NomeDoResumo(parte) && parte.numero >= 1 && parte.numero <= parte.partes &&
            parte.partes <= MaisPartes) {
            partes.push_back(parte);
        }
    }
    if (erro) {
        LancarErroDeArquivo(pasta, erro.value());
    }
    std::ranges::sort(partes);
    return partes;
}

}  // namespace tarvo::host
