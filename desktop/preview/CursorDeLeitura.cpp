// SPDX-License-Identifier: MIT
#include "desktop/preview/CursorDeLeitura.h"

#include <optional>

#include "desktop/preview/LeituraDoDocumento.h"

namespace tarvo {

namespace {

using No = LeituraDoDocumento::No;

// The next text behind (or before) a place, on its page and the following ones, that serve accepts.
template <class Serve>
std::optional<LugarDeLeitura> Procurar(LeituraDoDocumento& leitura, LugarDeLeitura lugar,
                                       int sentido, Serve serve) {
    for (lugar.no += sentido;; lugar.no += sentido) {
        const int quantos = static_cast<int>(leitura.Pagina(lugar.pagina).size());
        if (lugar.no < 0 || lugar.no >= quantos) {
            lugar.pagina += sentido;
            if (lugar.pagina < 0 || lugar.pagina >= leitura.Paginas()) {
                return std::nullopt;
            }
            lugar.no = sentido > 0 ? 0 : static_cast<int>(leitura.Pagina(lugar.pagina).size()) - 1;
        }
        const auto& no = leitura.Pagina(lugar.pagina)[static_cast<std::size_t>(lugar.no)];
        if (!no.texto.isEmpty() && serve(lugar, no)) {
            return lugar;
        }
    }
}

}  // namespace

LugarDeLeitura PrimeiroTexto(LeituraDoDocumento& leitura, int pagina) {
    const LugarDeLeitura antes{pagina, 0};
    return Procurar(leitura, antes, 1, [](const auto&, const auto&) { return true; })
        .value_or(antes);
}

LugarDeLeitura Andar(LeituraDoDocumento& leitura, const LugarDeLeitura& de, Passo passo) {
    const int sentido = passo == Passo::Seguinte || passo == Passo::Abaixo ? 1 : -1;
    const auto& aqui = leitura.Pagina(de.pagina)[static_cast<std::size_t>(de.no)];
    const bool porLinha = (passo == Passo::Abaixo || passo == Passo::Acima) && ECelula(aqui.tipo);
    const int coluna = porLinha ? leitura.Coluna(aqui.elemento) : 0;
    const auto serve = [&](const LugarDeLeitura& lugar, const No& no) {
        if (!porLinha || !ECelula(no.tipo)) {
            return true;
        }
        const bool outraLinha = lugar.pagina != de.pagina || no.pai != aqui.pai;
        const int inicio = leitura.Coluna(no.elemento);
        return outraLinha && coluna >= inicio && coluna < inicio + leitura.Largura(no.elemento);
    };
    return Procurar(leitura, de, sentido, serve).value_or(de);
}

}  // namespace tarvo
