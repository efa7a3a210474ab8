// SPDX-License-Identifier: MIT
#include "document/TextosDosElementos.h"

#include <algorithm>
#include <string_view>

#include "data/Formatos.h"
#include "data/Textos.h"
#include "data/Utf8.h"
#include "document/Momento.h"
#include "document/Substituicoes.h"

namespace tarvo {

namespace {

constexpr std::string_view Desconhecido = "\uFFFD";

bool EhLimpo(std::string_view texto) {
    return std::ranges::all_of(texto, [](char c) { return c >= ' ' && c <= '~'; });
}

// The last two places of the plane are no characters.
bool NaoEhCaractere(std::string_view caractere) {
    return caractere == "\uFFFE" || caractere == "\uFFFF";
}

std::string_view Limpo(std::string_view caractere) {
    const auto c = static_cast<unsigned char>(caractere.front());
    if (c == '\t') {
        return " ";
    }
    const bool controle = (c < ' ' && c != '\n') || c == 0x7F;
    return controle || NaoEhCaractere(caractere) ? Desconhecido : caractere;
}

void AcrescentarLimpo(std::string& saida, std::string_view texto) {
    if (EhLimpo(texto)) {
        saida += texto;
        return;
    }
    while (!texto.empty()) {
        const std::size_t tamanho = TamanhoDoCaractere(texto);
        const std::size_t tomados = std::max<std::size_t>(tamanho, 1);
        if (texto.front() == '\r') {
            saida += texto.substr(1).starts_with('\n') ? "" : "\n";
        } else {
            saida += tamanho == 0 ? Desconhecido : Limpo(texto.substr(0, tamanho));
        }
        texto.remove_prefix(tomados);
    }
}

}  // namespace

std::vector<std::string> TextosDosElementos(const Conteudo& conteudo) {
    const auto& donos = conteudo.estrutura.donos;
    std::vector<std::string> textos(conteudo.estrutura.elementos.size());
    const Data agora = Data::DeCivil(Momento::Agora().civil);
    Substituicoes por{.data = FormatarData(agora),
                      .hora = FormatarHora(agora),
                      .pagina = "",
                      .paginas = std::to_string(conteudo.paginas.size())};
    std::string espaco;
    for (std::size_t p = 0; p < std::min(donos.size(), conteudo.paginas.size()); ++p) {
        const Pagina& pagina = conteudo.paginas[p];
        por.pagina = std::to_string(p + 1);
        for (std::size_t i = 0; i < std::min(donos[p].size(), pagina.size()); ++i) {
            const auto* const texto = std::get_if<Texto>(&pagina[i]);
            if (texto == nullptr || texto->texto.empty() || donos[p][i] >= textos.size()) {
                continue;
            }
            const auto limpo = SemBrancos(Substituir(texto->texto, por, espaco));
            auto& saida = textos[donos[p][i]];
            saida += saida.empty() || limpo.empty() ? "" : " ";
            AcrescentarLimpo(saida, limpo);
        }
    }
    return textos;
}

}  // namespace tarvo
