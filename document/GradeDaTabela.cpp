// SPDX-License-Identifier: MIT
#include "document/GradeDaTabela.h"

#include <algorithm>

namespace tarvo {

namespace {

using Linha = TabelaDoDocumento::Linha;

// A place of the grid: the cell that covers it; how many of its columns it has before and after it
// in this row; whether it has come from a row above.
struct Lugar {
    const CelulaDaPagina* celula = nullptr;
    int antes = 0;
    int depois = 0;
    bool deCima = false;
};
using Lugares = std::vector<Lugar>;

// Lays rows out one after the other, with what the cells of earlier ones still cover.
class Grade {
  public:
    Lugares Colocar(const LinhaDaPagina& linha) {
        Lugares lugares;
        for (const auto& celula : linha.celulas) {
            TomarDeCima(lugares);
            const int colunas = std::max<int>(celula.elemento.colunas, 1);
            for (int i = 0; i < colunas; ++i) {
                const Lugar lugar{&celula, i, colunas - 1 - i};
                Cobrir(lugares.size(), lugar);
                lugares.push_back(lugar);
            }
        }
        for (TomarDeCima(lugares); lugares.size() < colunas_.size(); TomarDeCima(lugares)) {
            lugares.emplace_back();
        }
        return lugares;
    }

  private:
    struct Coluna {
        Lugar lugar;
        int restam = 0;  // rows
    };

    void TomarDeCima(Lugares& lugares) {
        while (lugares.size() < colunas_.size() && colunas_[lugares.size()].restam > 0) {
            auto& coluna = colunas_[lugares.size()];
            --coluna.restam;
            lugares.push_back(coluna.lugar);
            lugares.back().deCima = true;
        }
    }
    void Cobrir(std::size_t coluna, const Lugar& lugar) {
        colunas_.resize(std::max(colunas_.size(), coluna + 1));
        colunas_[coluna] = {lugar, std::max<int>(lugar.celula->elemento.linhas, 1) - 1};
    }

    std::vector<Coluna> colunas_;
};

void Titular(std::vector<std::string>& titulos, const Lugares& lugares) {
    titulos.resize(std::max(titulos.size(), lugares.size()));
    for (std::size_t i = 0; i < lugares.size(); ++i) {
        const auto& [celula, antes, depois, deCima] = lugares[i];
        if (celula != nullptr && !deCima && !celula->texto.empty()) {
            titulos[i].append(titulos[i].empty() ? "" : " – ").append(celula->texto);
        }
    }
}

// A title of a group is one text; elsewhere a value stands in the last column of its cell.
Linha LinhaDaGrade(FuncaoDaLinha funcao, const Lugares& lugares) {
    Linha linha{.funcao = funcao, .celulas = {}};
    const bool titulo = funcao == FuncaoDaLinha::TituloDeGrupo;
    for (const auto& [celula, antes, depois, deCima] : lugares) {
        auto& nova = linha.celulas.emplace_back();
        if (celula == nullptr || deCima) {
            continue;
        }
        const Natureza natureza = celula->elemento.natureza;
        if (antes == 0) {
            nova = {celula->texto, celula->rotulada ? Natureza::Texto : natureza};
        }
        if ((titulo ? antes : depois) == 0 && !celula->valor.empty()) {
            const std::string rotulo = antes == 0 && !nova.texto.empty() ? nova.texto + ": " : "";
            nova = {rotulo + celula->valor, rotulo.empty() ? natureza : Natureza::Texto};
        }
    }
    return linha;
}

}  // namespace

TabelaDoDocumento DisporEmGrade(const std::vector<LinhaDaPagina>& linhas) {
    TabelaDoDocumento tabela;
    Grade titulos;
    Grade corpo;
    for (const auto& linha : linhas) {
        if (linha.funcao == FuncaoDaLinha::Titulos) {
            Titular(tabela.titulos, titulos.Colocar(linha));
        } else {
            tabela.linhas.push_back(LinhaDaGrade(linha.funcao, corpo.Colocar(linha)));
        }
    }
    std::size_t colunas = tabela.titulos.size();
    for (const auto& linha : tabela.linhas) {
        colunas = std::max(colunas, linha.celulas.size());
    }
    tabela.titulos.resize(colunas);
    for (auto& linha : tabela.linhas) {
        linha.celulas.resize(colunas);
    }
    for (auto& titulo : tabela.titulos) {
        std::ranges::replace(titulo, '\n', ' ');
    }
    return tabela;
}

}  // namespace tarvo
