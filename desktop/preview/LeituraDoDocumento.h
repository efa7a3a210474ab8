// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>
#include <QString>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "desktop/preview/CursorDeLeitura.h"
#include "document/Estrutura.h"

namespace tarvo {

struct DocumentoPronto;

constexpr bool ECelula(TipoElemento tipo) {
    return tipo == TipoElemento::Celula || tipo == TipoElemento::CelulaDeTitulo;
}

// A document page by page as it is read by those who do not see it: its elements in the reader's
// order, tables as a grid. Worked out when somebody asks.
class LeituraDoDocumento {
  public:
    // documento outlives the object.
    explicit LeituraDoDocumento(const DocumentoPronto& documento);

    // What stands on a page. The page itself is the first; the others come in the reader's order,
    // each behind its parent.
    struct No {
        TipoElemento tipo = TipoElemento::Documento;
        std::uint32_t elemento = Estrutura::Raiz;
        int pai = -1;
        std::vector<int> filhos;
        QString texto;  // a picture's description; empty for what only holds others
        QRectF lugar;   // points from the page's corner; with all that it holds
    };
    // Valid as long as this object.
    const std::vector<No>& Pagina(int pagina);
    [[nodiscard]] int Paginas() const;

    // The column of a table in which a cell begins, from 0; as many as it spans.
    [[nodiscard]] int Coluna(std::uint32_t celula) const { return colunas_.at(celula); }
    [[nodiscard]] int Largura(std::uint32_t celula) const;
    // Of a table.
    [[nodiscard]] int Colunas(std::uint32_t tabela) const;
    // The heading cells over a column of a table, from the top down, and their texts joined.
    [[nodiscard]] std::vector<std::uint32_t> TitulosDaColuna(std::uint32_t tabela,
                                                             int coluna) const;
    [[nodiscard]] QString TituloDaColuna(std::uint32_t tabela, int coluna) const;
    // The cell that names a row, its code as a rule, and its text.
    [[nodiscard]] std::optional<std::uint32_t> QueIntitula(std::uint32_t linha) const;
    [[nodiscard]] QString TituloDaLinha(std::uint32_t linha) const;
    [[nodiscard]] bool IntitulaLinha(std::uint32_t celula) const;
    // Where an element's text begins; nothing for one that shows none.
    [[nodiscard]] std::optional<LugarDeLeitura> OndeEsta(std::uint32_t elemento);

  private:
    void Dispor();
    void DisporCelula(std::uint32_t celula);
    // The element that a text is read as a part of; nothing for decoration.
    [[nodiscard]] std::optional<std::uint32_t> QueSeLe(std::size_t celula) const;
    [[nodiscard]] QString TextoDo(std::uint32_t elemento) const;
    // By element: the text and place of all that shows something on a page.
    [[nodiscard]] std::map<std::uint32_t, No> Mostrados(int pagina) const;

    struct Tabela {
        std::vector<std::uint32_t> titulos;  // heading cells of columns, in their order
        std::vector<int> ocupada;            // by column: rows from which on it is free
        std::vector<std::uint32_t> linhas;
    };
    const DocumentoPronto& documento_;
    std::vector<std::uint32_t> lidosEm_;
    std::vector<std::uint16_t> colunas_;        // by element: column of a cell
    std::vector<std::uint32_t> linhas_;         // by element: number of a row in its table
    std::vector<std::uint32_t> tituloDaLinha_;  // by element: the cell that names a row
    std::map<std::uint32_t, Tabela> tabelas_;
    std::vector<std::size_t> primeiraCelula_;  // by element: first text; the end without one
    std::map<int, std::vector<No>> paginas_;
};

}  // namespace tarvo
