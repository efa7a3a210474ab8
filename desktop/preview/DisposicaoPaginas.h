#pragma once

#include <QPoint>
#include <QSize>

namespace tarvo {

// Where the pages of a document, all of one size, stand in a view: arithmetic only. Lengths are
// the view's pixels; pages count from 0; there is at least one.
struct DisposicaoPaginas {
    static constexpr int Margem = 12;  // around the pages
    static constexpr int Espaco = 12;  // between two pages

    int paginas = 1;
    QSize pagina;          // of one page
    QSize janela;          // of the view
    bool continuo = true;  // all pages one below the other, or only the current one
    int atual = 0;

    [[nodiscard]] QSize Conteudo() const;
    // Top-left corner of a page in the content; pages that leave room stand in the middle.
    [[nodiscard]] QPoint Origem(int indice) const;
    // The page at that height, or the nearest one.
    [[nodiscard]] int PaginaEm(int y) const;
    // The page that a reader of the view, scrolled to topo, would call the current one: the first
    // that shows half of itself or fills half of the view.
    [[nodiscard]] int PaginaPrincipal(int topo) const;
};

}  // namespace tarvo
