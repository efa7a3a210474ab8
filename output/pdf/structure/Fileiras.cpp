// SPDX-License-Identifier: MIT
#include "output/pdf/structure/Fileiras.h"

#include <algorithm>
#include <cstddef>

namespace tarvo::pdf {

namespace {

// The columns of a table while its rows are laid out, and how many rows still cover each.
class Colunas {
  public:
    void NovaFileira() {
        for (int& resto : restos_) {
            resto = std::max(resto - 1, 0);
        }
        coluna_ = 0;
        Pular();
    }
    // Lays a cell where there is room, cut to it.
    void Por(Vao& vao, int linhasQueRestam) {
        vao.linhas = std::clamp(vao.linhas, 1, linhasQueRestam);
        int colunas = 0;
        while (colunas < std::max(vao.colunas, 1) && !Coberta(coluna_)) {
            restos_.resize(std::max(restos_.size(), coluna_ + 1));
            restos_[coluna_++] = vao.linhas;
            ++colunas;
        }
        vao.colunas = colunas;
        Pular();
    }
    [[nodiscard]] std::size_t Ate() const { return coluna_; }
    [[nodiscard]] std::size_t Largura() const { return restos_.size(); }

  private:
    [[nodiscard]] bool Coberta(std::size_t coluna) const {
        return coluna < restos_.size() && restos_[coluna] > 0;
    }
    void Pular() {
        while (Coberta(coluna_)) {
            ++coluna_;
        }
    }

    std::vector<int> restos_;
    std::size_t coluna_ = 0;
};

struct Disposicao {
    std::size_t largura = 0;
    bool iguais = true;  // every row reaches the wanted width
};

Disposicao Dispor(std::vector<Fileira>& fileiras, std::size_t largura) {
    Colunas colunas;
    bool iguais = true;
    for (std::size_t i = 0; i < fileiras.size(); ++i) {
        colunas.NovaFileira();
        for (std::size_t n = 0; n < fileiras[i].size(); ++n) {
            Vao& vao = fileiras[i][n];
            if (n + 1 == fileiras[i].size() && colunas.Ate() < largura) {
                vao.colunas = std::max(vao.colunas, static_cast<int>(largura - colunas.Ate()));
            }
            colunas.Por(vao, static_cast<int>(fileiras.size() - i));
        }
        iguais = iguais && colunas.Ate() == largura;
    }
    return {colunas.Largura(), iguais};
}

}  // namespace

void Igualar(std::vector<Fileira>& fileiras) {
    if (Dispor(fileiras, Dispor(fileiras, 0).largura).iguais) {
        return;
    }
    // A gap before a cell from above: cells of one row each leave none.
    for (Fileira& fileira : fileiras) {
        for (Vao& vao : fileira) {
            vao.linhas = 1;
        }
    }
    Dispor(fileiras, Dispor(fileiras, 0).largura);
}

}  // namespace tarvo::pdf
