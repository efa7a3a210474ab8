// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

#include "document/DocumentoRelatorio.h"
#include "document/QuadroPagina.h"

namespace tarvo {

// A table while it is drawn: rows begun meanwhile are its rows. Its headings are recorded once;
// drawn again, on a later page, above a later group or in every row, they are decoration.
class TabelaEmDesenho {
  public:
    explicit TabelaEmDesenho(DocumentoRelatorio& doc);

    // Each time before headings are drawn: that many rows of them, the first with its top at y and
    // each alturaLinha high, cm (of a single row both may be left out).
    void ComecarTitulos(int linhas = 1, double y = 0, double alturaLinha = 0);
    // A column heading, in the row where its top is and over as many rows as it is high.
    void Titulo(const EstiloTexto& estilo, double x, double y, double largura, double altura,
                std::string_view texto, int colunas = 1);
    // A cell of the open row, whose label heads its column.
    void Caixa(const EstiloCampo& estilo, double x, double y, double largura, double altura,
               std::string_view rotulo, std::string_view valor, Elemento celula);

  private:
    [[nodiscard]] std::uint32_t LinhaDeTitulos(int nivel) const;

    DocumentoRelatorio& doc_;
    Trecho tabela_;
    std::uint32_t titulos_ = Estrutura::Raiz;  // first heading row, when begun
    int linhas_ = 1;
    double y_ = 0;
    double alturaLinha_ = 0;
};

}  // namespace tarvo
