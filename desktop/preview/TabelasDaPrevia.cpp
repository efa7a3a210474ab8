// SPDX-License-Identifier: MIT
#include "desktop/preview/TabelasDaPrevia.h"

#include <algorithm>
#include <numeric>

#include "desktop/preview/DocumentoPronto.h"
#include "desktop/preview/SelecaoDeCelulas.h"

namespace tarvo {

namespace {

// What the walk through the structure reads of a document.
Conteudo TextosComEstrutura(const DocumentoPronto& documento) {
    const auto& celulas = documento.celulas;
    Conteudo conteudo;
    conteudo.tituloResumido = documento.tituloResumido;
    conteudo.estrutura.elementos = documento.elementos;
    conteudo.paginas.resize(static_cast<std::size_t>(celulas.Paginas()));
    conteudo.estrutura.donos.resize(conteudo.paginas.size());
    for (std::size_t p = 0; p < conteudo.paginas.size(); ++p) {
        const auto pagina = static_cast<int>(p);
        for (auto i = celulas.Primeira(pagina); i < celulas.Primeira(pagina + 1); ++i) {
            conteudo.estrutura.donos[p].push_back(celulas.Dono(i));
            conteudo.paginas[p].emplace_back(
                Texto{.caixa = {}, .texto = std::string(celulas.TextoGravado(i))});
        }
    }
    return conteudo;
}

}  // namespace

TabelasDaPrevia::TabelasDaPrevia(const DocumentoPronto& documento)
    : documento_(documento),
      tabelas_(TabelasDoDocumento(TextosComEstrutura(documento))),
      tabelaDoElemento_(documento.elementos.size(), tabelas_.size()) {
    for (std::size_t t = 0; t < tabelas_.size(); ++t) {
        for (const auto elemento : tabelas_[t].elementos) {
            tabelaDoElemento_[elemento] = t;
        }
    }
    for (std::size_t e = 1; e < tabelaDoElemento_.size(); ++e) {
        if (tabelaDoElemento_[e] == tabelas_.size()) {
            tabelaDoElemento_[e] = tabelaDoElemento_[documento.elementos[e].pai];
        }
    }
}

const TabelaDoDocumento* TabelasDaPrevia::Escolhida(const SelecaoDeCelulas& selecao,
                                                    int pagina) const {
    if (const auto* tabela = Com(selecao.Celulas(pagina))) {
        return tabela;
    }
    const auto& celulas = documento_.celulas;
    std::vector<std::size_t> daPagina(celulas.Primeira(pagina + 1) - celulas.Primeira(pagina));
    std::iota(daPagina.begin(), daPagina.end(), celulas.Primeira(pagina));
    return Com(daPagina);
}

const TabelaDoDocumento* TabelasDaPrevia::Com(const std::vector<std::size_t>& celulas) const {
    std::vector<std::size_t> quantas(tabelas_.size() + 1);
    for (const auto celula : celulas) {
        const auto dono = documento_.celulas.Dono(celula);
        ++quantas[dono < tabelaDoElemento_.size() ? tabelaDoElemento_[dono] : tabelas_.size()];
    }
    quantas.pop_back();
    const auto maior = std::ranges::max_element(quantas);
    return maior == quantas.end() || *maior == 0
               ? nullptr
               : &tabelas_[static_cast<std::size_t>(maior - quantas.begin())];
}

}  // namespace tarvo
