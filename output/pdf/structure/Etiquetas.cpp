// SPDX-License-Identifier: MIT
#include "output/pdf/structure/Etiquetas.h"

#include <algorithm>

namespace tarvo::pdf {

namespace {

bool RecebeBlocos(Etiqueta pai) {
    return pai == Etiqueta::Document || pai == Etiqueta::LBody || EhCelula(pai);
}

// As what an element of that kind can stand directly below that parent.
Etiqueta EtiquetaSob(Etiqueta pai, TipoElemento tipo) {
    const auto se = [](bool cabe, Etiqueta etiqueta) {
        return cabe ? etiqueta : Etiqueta::Nenhuma;
    };
    switch (tipo) {
        case TipoElemento::Titulo:
            return se(pai == Etiqueta::Document, Etiqueta::H1);
        case TipoElemento::Secao:
            return se(pai == Etiqueta::Document, Etiqueta::H2);
        case TipoElemento::Paragrafo:
            return se(RecebeBlocos(pai), Etiqueta::P);
        case TipoElemento::Campo:
            return se(RecebeBlocos(pai), Etiqueta::LI);
        case TipoElemento::Rotulo:
            return se(pai == Etiqueta::LI, Etiqueta::Lbl);
        case TipoElemento::ValorDeCampo:
            return se(pai == Etiqueta::LI, Etiqueta::LBody);
        case TipoElemento::Tabela:
            return se(RecebeBlocos(pai), Etiqueta::Table);
        case TipoElemento::LinhaDeTabela:
            return se(pai == Etiqueta::Table, Etiqueta::TR);
        case TipoElemento::CelulaDeTitulo:
            return se(pai == Etiqueta::TR, Etiqueta::TH);
        case TipoElemento::Celula:
            return se(pai == Etiqueta::TR, Etiqueta::TD);
        case TipoElemento::Figura:
            return se(RecebeBlocos(pai), Etiqueta::Figure);
        case TipoElemento::Documento:
            break;
    }
    return Etiqueta::Nenhuma;
}

Colocacao ColocarSob(const std::vector<Colocacao>& colocados, std::uint32_t pai,
                     TipoElemento tipo) {
    for (;; pai = colocados[pai].pai) {
        const Etiqueta etiqueta = EtiquetaSob(colocados[pai].etiqueta, tipo);
        if (etiqueta != Etiqueta::Nenhuma || pai == Estrutura::Raiz) {
            return {etiqueta, pai};
        }
    }
}

}  // namespace

bool EhCelula(Etiqueta etiqueta) {
    return etiqueta == Etiqueta::TH || etiqueta == Etiqueta::TD;
}

std::string_view NomeDe(Etiqueta etiqueta) {
    constexpr std::string_view Nomes[] = {"",      "Document", "H1", "H2", "P",  "LI",    "Lbl",
                                          "LBody", "Table",    "TR", "TH", "TD", "Figure"};
    return Nomes[static_cast<std::size_t>(etiqueta)];
}

bool TemEstrutura(const Conteudo& conteudo) {
    const auto& [elementos, donos] = conteudo.estrutura;
    for (std::size_t i = 1; i < elementos.size(); ++i) {
        if (elementos[i].pai >= i) {
            return false;
        }
    }
    const auto possui = [&elementos = elementos](std::uint32_t dono) {
        return dono == Estrutura::Decoracao ||
               (dono < elementos.size() && TemConteudo(elementos[dono].tipo));
    };
    return !elementos.empty() &&
           std::equal(donos.begin(), donos.end(), conteudo.paginas.begin(), conteudo.paginas.end(),
                      [&](const auto& daPagina, const Pagina& pagina) {
                          return daPagina.size() == pagina.size() &&
                                 std::all_of(daPagina.begin(), daPagina.end(), possui);
                      });
}

std::vector<Colocacao> Colocar(const Estrutura& estrutura) {
    const auto& elementos = estrutura.elementos;
    std::vector<Colocacao> colocados(elementos.size());
    colocados.front().etiqueta = Etiqueta::Document;
    for (std::size_t i = 1; i < elementos.size(); ++i) {
        const auto& [tipo, pai] = std::pair(elementos[i].tipo, elementos[i].pai);
        if (tipo == TipoElemento::Rotulo && EhCelula(colocados[pai].etiqueta)) {
            colocados[i].pai = pai;
            continue;
        }
        colocados[i] = ColocarSob(colocados, pai, tipo);
        if (colocados[i].etiqueta == Etiqueta::Nenhuma && TemConteudo(tipo)) {
            colocados[i] = ColocarSob(colocados, pai, TipoElemento::Paragrafo);
        }
    }
    return colocados;
}

}  // namespace tarvo::pdf
