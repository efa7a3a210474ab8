#include "host/batch/Parte.h"

#include <algorithm>
#include <cstdio>

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
        const bool lida =
            nome == NomeDoResumo(parte) ||
            std::sscanf(nome.c_str(), "resumo-%6d-de-%6d.csv", &parte.numero, &parte.partes) == 2;
        if (lida && nome == NomeDoResumo(parte) && parte.numero >= 1 &&
            parte.numero <= parte.partes && parte.partes <= MaisPartes) {
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
