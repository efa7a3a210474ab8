#pragma once

#include <QRectF>
#include <QString>
#include <string>
#include <vector>

#include "document/Conteudo.h"

namespace tarvo {

// The texts of a document with their boxes, so that the preview can copy cells: texts whole even
// where the page shows them cut, a row's cells separated by tabs as spreadsheets read them.
class CelulasDeTexto {
  public:
    CelulasDeTexto() = default;
    explicit CelulasDeTexto(const Conteudo& conteudo);

    // The boxes that touch area, both in points from the page's top-left corner; pages from 0.
    [[nodiscard]] std::vector<QRectF> Caixas(int pagina, const QRectF& area) const;
    [[nodiscard]] QString Copiar(int pagina, const QRectF& area) const;

  private:
    struct Celula {
        float x, y, largura, altura;  // points
        std::size_t inicio;           // in textos_
    };
    [[nodiscard]] std::vector<std::size_t> Tocadas(int pagina, const QRectF& area) const;
    [[nodiscard]] QString TextoDa(std::size_t celula, int pagina) const;

    std::string textos_;                // one after the other, each ended by a NUL
    std::vector<Celula> celulas_;       // in the order of the pages
    std::vector<std::size_t> paginas_;  // first cell of each page, and the end
    std::string data_, hora_;           // of the rendering
};

}  // namespace tarvo
