// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QString>
#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "document/Conteudo.h"

namespace tarvo {

// A picture that says something, for those who do not see it.
struct FiguraDescrita {
    int pagina = 0;
    std::uint32_t dono = 0;  // its element in the document's structure
    QRectF lugar;            // points from the page's top-left corner
    QString descricao;
};

// The texts of a document with their boxes, and what its pictures show, so that the preview can
// copy cells: texts whole even where the page shows them cut, a row's cells separated by tabs as
// spreadsheets read them.
class CelulasDeTexto {
  public:
    CelulasDeTexto() = default;
    explicit CelulasDeTexto(const Conteudo& conteudo);

    // The boxes that touch area, both in points from the page's top-left corner; pages from 0.
    [[nodiscard]] std::vector<QRectF> Caixas(int pagina, const QRectF& area) const;
    [[nodiscard]] QString Copiar(int pagina, const QRectF& area) const;

    // Those that touch area, in the order in which they were drawn.
    [[nodiscard]] std::vector<std::size_t> Tocadas(int pagina, const QRectF& area) const;

    // The cells themselves, page by page, in the order in which they were drawn.
    [[nodiscard]] int Paginas() const { return std::max(0, static_cast<int>(paginas_.size()) - 1); }
    [[nodiscard]] std::size_t Primeira(int pagina) const {
        return paginas_.at(static_cast<std::size_t>(pagina));
    }
    [[nodiscard]] int PaginaDa(std::size_t celula) const;
    [[nodiscard]] QString TextoDa(std::size_t celula, int pagina) const;
    // As it was recorded, with its placeholders and line breaks.
    [[nodiscard]] std::string_view TextoGravado(std::size_t celula) const {
        return textos_.c_str() + celulas_[celula].inicio;
    }
    [[nodiscard]] QRectF Lugar(std::size_t celula) const;
    // Index of the element of the document's structure whose content it is, or
    // Estrutura::Decoracao.
    [[nodiscard]] std::uint32_t Dono(std::size_t celula) const { return celulas_[celula].dono; }
    // In the order of the pages.
    [[nodiscard]] const std::vector<FiguraDescrita>& Figuras() const { return figuras_; }
    // A box as it was recorded, in points from the page's top-left corner.
    [[nodiscard]] QRectF NaPagina(const Caixa& caixa) const;

  private:
    struct Celula {
        float x, y, largura, altura;  // points
        std::uint32_t dono;
        std::size_t inicio;  // in textos_
    };

    Margens margens_;
    std::string textos_;                // one after the other, each ended by a NUL
    std::vector<Celula> celulas_;       // in the order of the pages
    std::vector<std::size_t> paginas_;  // first cell of each page, and the end
    std::vector<FiguraDescrita> figuras_;
    std::string data_, hora_;  // of the rendering
};

}  // namespace tarvo
