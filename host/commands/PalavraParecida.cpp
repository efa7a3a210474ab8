// SPDX-License-Identifier: MIT
#include "host/commands/PalavraParecida.h"

#include <algorithm>
#include <string>
#include <vector>

#include "host/commands/Mensagens.h"

namespace tarvo::host {

namespace {

// How many letters must be left out, put in, changed or swapped to come from one to the other.
std::size_t Distancia(std::string_view a, std::string_view b) {
    const std::size_t colunas = b.size() + 1;
    std::vector<std::size_t> d((a.size() + 1) * colunas);
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t j = 0; j <= b.size(); ++j) {
            std::size_t& aqui = d[i * colunas + j];
            if (i == 0 || j == 0) {
                aqui = i + j;
                continue;
            }
            const bool igual = a[i - 1] == b[j - 1];
            aqui = std::min({d[(i - 1) * colunas + j] + 1, d[i * colunas + j - 1] + 1,
                             d[(i - 1) * colunas + j - 1] + (igual ? 0 : 1)});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                aqui = std::min(aqui, d[(i - 2) * colunas + j - 2] + 1);
            }
        }
    }
    return d.back();
}

std::string SemHifensNemMaiusculas(std::string_view palavra) {
    palavra.remove_prefix(std::min(palavra.find_first_not_of('-'), palavra.size()));
    std::string letras(palavra);
    std::ranges::transform(letras, letras.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return letras;
}

}  // namespace

std::string_view PalavraParecida(std::string_view digitada,
                                 std::span<const std::string_view> palavras) {
    constexpr std::size_t MaiorPalavra = 40;
    const std::string letras = SemHifensNemMaiusculas(digitada);
    if (letras.empty() || digitada.size() > MaiorPalavra) {
        return {};
    }
    std::string_view parecida;
    std::vector<std::string_view> comEsseComeco;
    // A third of the letters may be wrong.
    std::size_t menor = letras.size() / 3 + 1;
    for (const auto palavra : palavras) {
        const std::string outras = SemHifensNemMaiusculas(palavra);
        const std::size_t distancia = Distancia(letras, outras);
        if (distancia < menor) {
            menor = distancia;
            parecida = palavra;
        }
        if (outras.starts_with(letras)) {
            comEsseComeco.push_back(palavra);
        }
    }
    return parecida.empty() && comEsseComeco.size() == 1 ? comEsseComeco[0] : parecida;
}

void RecusarPalavra(std::string_view tipo, std::string_view palavra, std::string_view parecida,
                    std::string_view comando) {
    std::string motivo = "não há ";
    motivo.append(tipo).append(" \"").append(palavra).append("\"");
    motivo.append(comando.empty() ? "" : " em ").append(comando);
    if (!parecida.empty()) {
        motivo.append(tipo.starts_with("a ") ? "; a mais parecida é " : "; o mais parecido é ");
        motivo += parecida;
    }
    throw UsoErrado(motivo);
}

}  // namespace tarvo::host
