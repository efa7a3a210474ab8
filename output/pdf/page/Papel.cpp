// SPDX-License-Identifier: MIT
#include "output/pdf/page/Papel.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "document/Imagens.h"

namespace tarvo::pdf {

namespace {

// No place farther out than this, cm, is on the paper; twice it is a length that a file can state.
constexpr double Maior = 250;

// The part of a stretch that some page can show.
std::pair<double, double> Recortar(double inicio, double extensao) {
    const double recortado = std::clamp(inicio, -Maior, Maior);
    if (recortado == inicio && std::abs(inicio + extensao) <= Maior) {
        return {inicio, extensao};
    }
    return {recortado, std::clamp(inicio + extensao, -Maior, Maior) - recortado};
}

// A stretch of at most two such lengths in which an alignment code stands for the same place.
std::pair<double, double> Ancorar(double inicio, double extensao, int codigo) {
    const double visivel = std::min(extensao, 2 * Maior);
    return {inicio + (extensao - visivel) * codigo / 2, visivel};
}

// Narrows the part of a line, as shares of its length, to where it lies within the reach.
void Limitar(double inicio, double extensao, double& de, double& ate) {
    if (extensao != 0) {
        const double a = (-Maior - inicio) / extensao;
        const double b = (Maior - inicio) / extensao;
        de = std::max(de, std::min(a, b));
        ate = std::min(ate, std::max(a, b));
    }
}

}  // namespace

Caixa Papel::Recortada(const Caixa& caixa) {
    const auto [x, largura] = Recortar(caixa.x, caixa.largura);
    const auto [y, altura] = Recortar(caixa.y, caixa.altura);
    return {x, y, largura, altura};
}

Lugar Papel::DaCaixa(const Caixa& caixa) const {
    return {DeCm(margens_.esquerda + caixa.x), altura_ - DeCm(margens_.superior + caixa.y),
            DeCm(caixa.largura), DeCm(caixa.altura)};
}

Lugar Papel::LugarDe(const Linha& linha) const {
    const Caixa& c = linha.caixa;
    double de = 0;
    double ate = 1;
    Limitar(c.x, c.largura, de, ate);
    Limitar(c.y, c.altura, de, ate);
    if (de > ate) {
        return DaCaixa({-Maior, -Maior, 0, 0});
    }
    return DaCaixa(
        {c.x + de * c.largura, c.y + de * c.altura, (ate - de) * c.largura, (ate - de) * c.altura});
}

Lugar Papel::LugarDe(const Texto& texto) const {
    const auto [x, largura] = Ancorar(texto.caixa.x, texto.caixa.largura, texto.horizontal);
    const auto [y, altura] = Ancorar(texto.caixa.y, texto.caixa.altura, texto.vertical);
    return DaCaixa({x, y, largura, altura});
}

Lugar Papel::LugarDe(const Figura& figura) const {
    Caixa caixa = figura.caixa;
    if (figura.proporcional) {
        const auto& imagem = *figura.imagem;
        const double escala =
            std::min(caixa.largura / imagem.largura, caixa.altura / imagem.altura);
        const double largura = imagem.largura * escala;
        const double altura = imagem.altura * escala;
        caixa = {caixa.x + (caixa.largura - largura) / 2, caixa.y + (caixa.altura - altura) / 2,
                 largura, altura};
    }
    return DaCaixa(Recortada(caixa));
}

}  // namespace tarvo::pdf
