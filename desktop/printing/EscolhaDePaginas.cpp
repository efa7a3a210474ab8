// SPDX-License-Identifier: MIT
#include "desktop/printing/EscolhaDePaginas.h"

#include <algorithm>
#include <numeric>

#include "data/Textos.h"

namespace tarvo {

namespace {

constexpr std::string_view Brancos = " \t";

// A page's number; padrao where nothing stands, 0 for what is none.
int LerPagina(std::string_view texto, int padrao) {
    texto = SemBrancos(texto, Brancos);
    return texto.empty() ? padrao : LerInteiro<int>(texto).value_or(0);
}

}  // namespace

std::optional<std::vector<int>> LerPaginas(std::string_view texto, int total) {
    std::vector<int> paginas;
    if (SemBrancos(texto, Brancos).empty()) {
        texto = "1-";
    }
    while (true) {
        const auto virgula = texto.find_first_of(",;");
        const auto parte = texto.substr(0, virgula);
        const auto traco = parte.find('-');
        const bool intervalo = traco != std::string_view::npos;
        const int primeira = LerPagina(parte.substr(0, traco), intervalo ? 1 : 0);
        const int ultima = intervalo ? LerPagina(parte.substr(traco + 1), total) : primeira;
        if (primeira < 1 || ultima < primeira || ultima > total) {
            return std::nullopt;
        }
        const auto antes = paginas.size();
        paginas.resize(antes + static_cast<std::size_t>(ultima - primeira) + 1);
        std::iota(paginas.begin() + static_cast<std::ptrdiff_t>(antes), paginas.end(), primeira);
        if (virgula == std::string_view::npos) {
            return paginas;
        }
        texto.remove_prefix(virgula + 1);
    }
}

std::vector<int> Filtrar(std::vector<int> paginas, Folhas folhas, bool inversa) {
    std::erase_if(paginas, [folhas](int pagina) {
        return (folhas == Folhas::Impares && pagina % 2 == 0) ||
               (folhas == Folhas::Pares && pagina % 2 != 0);
    });
    if (inversa) {
        std::reverse(paginas.begin(), paginas.end());
    }
    return paginas;
}

}  // namespace tarvo
