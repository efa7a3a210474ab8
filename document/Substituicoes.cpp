// SPDX-License-Identifier: MIT
#include "document/Substituicoes.h"

namespace tarvo {

namespace {

constexpr std::string_view Marca = "%%";

const std::string* ValorDe(char letra, const Substituicoes& por) {
    switch (letra) {
        case 'D':
            return &por.data;
        case 'H':
            return &por.hora;
        case 'p':
            return &por.pagina;
        case 'P':
            return &por.paginas;
        default:
            return nullptr;
    }
}

}  // namespace

std::string_view Substituir(std::string_view texto, const Substituicoes& por, std::string& espaco) {
    auto marca = texto.find(Marca);
    if (marca == std::string_view::npos) {
        return texto;
    }
    espaco.clear();
    std::size_t inicio = 0;
    while (marca != std::string_view::npos && marca + Marca.size() < texto.size()) {
        const auto* const valor = ValorDe(texto[marca + Marca.size()], por);
        if (valor != nullptr) {
            espaco.append(texto, inicio, marca - inicio).append(*valor);
            inicio = marca + Marca.size() + 1;
        }
        marca = texto.find(Marca, valor != nullptr ? inicio : marca + 1);
    }
    return espaco.append(texto, inicio);
}

}  // namespace tarvo
