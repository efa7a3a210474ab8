// SPDX-License-Identifier: MIT
#include "desktop/preview/SelecaoDeCelulas.h"

#include <QStringList>

#include <algorithm>
#include <utility>

#include "desktop/preview/CelulasDeTexto.h"

namespace tarvo {

namespace {

// A rectangle without extent touches no cell.
constexpr QSizeF Ponta(0.01, 0.01);
constexpr double FimDaPagina = 1e4;  // points, beyond any paper

}  // namespace

void SelecaoDeCelulas::Mostrar(const CelulasDeTexto* celulas) {
    celulas_ = celulas;
    vazia_ = true;
}

bool SelecaoDeCelulas::Comecar(int pagina, const QPointF& ponto) {
    inicio_ = {pagina, ponto};
    return !std::exchange(vazia_, true);
}

bool SelecaoDeCelulas::Estender(int pagina, const QPointF& ponto) {
    constexpr double Intencao = 3;  // points
    const auto distancia = (ponto - inicio_.ponto).manhattanLength();
    if (celulas_ == nullptr || (vazia_ && pagina == inicio_.pagina && distancia <= Intencao)) {
        return false;
    }
    fim_ = {pagina, ponto};
    vazia_ = false;
    return true;
}

bool SelecaoDeCelulas::SelecionarCelula(int pagina, const QPointF& ponto) {
    if (celulas_ == nullptr || celulas_->Caixas(pagina, QRectF(ponto, Ponta)).empty()) {
        return false;
    }
    inicio_ = fim_ = {pagina, ponto};
    vazia_ = false;
    return true;
}

void SelecaoDeCelulas::SelecionarArea(int pagina, const QRectF& area) {
    const QRectF dentro = area.adjusted(1, 1, -1, -1);  // neighbours share the edge
    inicio_ = {pagina, dentro.topLeft()};
    fim_ = {pagina, dentro.bottomRight()};
    vazia_ = false;
}

void SelecaoDeCelulas::SelecionarPaginas(int primeira, int ultima, const QSizeF& papel) {
    inicio_ = {primeira, {}};
    fim_ = {ultima, {papel.width(), papel.height()}};
    vazia_ = false;
}

// Between two pages the columns go on: to the end of the first and from the top of the last.
QRectF SelecaoDeCelulas::Area(int pagina) const {
    const bool emOrdem = inicio_.pagina <= fim_.pagina;
    const Lugar& primeiro = emOrdem ? inicio_ : fim_;
    const Lugar& ultimo = emOrdem ? fim_ : inicio_;
    if (vazia_ || pagina < primeiro.pagina || pagina > ultimo.pagina) {
        return {};
    }
    QRectF area = QRectF(inicio_.ponto, fim_.ponto).normalized();
    if (primeiro.pagina != ultimo.pagina) {
        area.setTop(pagina == primeiro.pagina ? primeiro.ponto.y() : 0);
        area.setBottom(pagina == ultimo.pagina ? ultimo.ponto.y() : FimDaPagina);
    }
    return {area.topLeft(), area.size() + Ponta};
}

QString SelecaoDeCelulas::Texto() const {
    QStringList paginas;
    if (!vazia_ && celulas_ != nullptr) {
        const auto [primeira, ultima] = std::minmax(inicio_.pagina, fim_.pagina);
        for (int pagina = primeira; pagina <= ultima; ++pagina) {
            if (auto texto = celulas_->Copiar(pagina, Area(pagina)); !texto.isEmpty()) {
                paginas << std::move(texto);
            }
        }
    }
    return paginas.join(u'\n');
}

std::vector<std::size_t> SelecaoDeCelulas::Celulas(int pagina) const {
    std::vector<std::size_t> celulas;
    if (celulas_ == nullptr) {
        return celulas;
    }
    if (vazia_) {
        const QRectF linha(0, inicio_.ponto.y(), FimDaPagina, Ponta.height());
        return pagina == inicio_.pagina ? celulas_->Tocadas(pagina, linha) : celulas;
    }
    const auto [primeira, ultima] = std::minmax(inicio_.pagina, fim_.pagina);
    for (int p = primeira; p <= ultima; ++p) {
        const auto tocadas = celulas_->Tocadas(p, Area(p));
        celulas.insert(celulas.end(), tocadas.begin(), tocadas.end());
    }
    return celulas;
}

std::vector<QRectF> SelecaoDeCelulas::Caixas(int pagina) const {
    const QRectF area = Area(pagina);
    if (area.isNull() || celulas_ == nullptr) {
        return {};
    }
    auto caixas = celulas_->Caixas(pagina, area);
    for (const auto& figura : celulas_->Figuras()) {
        if (figura.pagina == pagina && area.intersects(figura.lugar)) {
            caixas.push_back(figura.lugar);
        }
    }
    return caixas;
}

}  // namespace tarvo
