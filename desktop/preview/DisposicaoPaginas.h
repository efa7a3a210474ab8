// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <utility>

namespace tarvo {

// Where the pages of a document, all of one size, stand in a view: arithmetic only. Lengths are
// the view's pixels unless said; pages count from 0; there is at least one.
struct DisposicaoPaginas {
    static constexpr int Margem = 12;  // around the pages
    static constexpr int Espaco = 12;  // between two pages

    int paginas = 1;
    QSize pagina;                 // of one page
    QSize janela;                 // of the view
    double pixelsPorPonto = 1.0;  // of the paper's points
    bool continuo = true;         // all rows one below the other, or only the current page's
    int colunas = 1;              // pages side by side in a row
    int atual = 0;
    QPoint topo{};  // the part of the content at the view's top-left corner

    [[nodiscard]] QSize Conteudo() const;
    // Top-left corner of a page in the content; pages that leave room stand in the middle.
    [[nodiscard]] QPoint Origem(int indice) const;
    // The first page of the row in which the page stands.
    [[nodiscard]] int PrimeiraDaFileira(int indice) const { return indice - indice % colunas; }
    // The page at that point of the content, or the nearest one.
    [[nodiscard]] int PaginaEm(const QPoint& ponto) const;
    // The page at that point of the view, or the nearest one.
    [[nodiscard]] int PaginaNaJanela(const QPoint& ponto) const { return PaginaEm(ponto + topo); }
    // The page that a reader of the view would call the current one: the first that shows half of
    // itself or fills half of the view, and within its row the one that is current already.
    [[nodiscard]] int PaginaPrincipal() const;
    // First and last page of which the view may show something.
    [[nodiscard]] std::pair<int, int> Visiveis() const;
    // Where a page stands in the view.
    [[nodiscard]] QRect NaJanela(int indice) const { return {Origem(indice) - topo, pagina}; }
    // A point of the view on that page, points from the page's corner.
    [[nodiscard]] QPointF NaPagina(int indice, const QPoint& ponto) const {
        return QPointF(ponto - NaJanela(indice).topLeft()) / pixelsPorPonto;
    }
    // A part of a page (points) in the content.
    [[nodiscard]] QRect NoConteudo(int indice, const QRectF& area) const;

    // A place on a page and the point of the view where it is to stay.
    struct Ancora {
        int pagina;
        QPointF fracao;  // of the page's size
        QPoint ponto;
    };
    [[nodiscard]] Ancora AncorarEm(const QPoint& ponto) const;
    [[nodiscard]] static Ancora NoComecoDe(int indice) { return {indice, {}, {Margem, Margem}}; }
    // The topo that keeps the anchor in its place.
    [[nodiscard]] QPoint TopoPara(const Ancora& ancora) const;
};

}  // namespace tarvo
