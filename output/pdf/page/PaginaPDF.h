// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <vector>

#include "document/Conteudo.h"
#include "output/pdf/page/AreasOcupadas.h"
#include "output/pdf/page/FigurasPDF.h"
#include "output/pdf/page/Formas.h"
#include "output/pdf/page/FormulariosPDF.h"
#include "output/pdf/page/Grade.h"
#include "output/pdf/page/OperadoresDePagina.h"
#include "output/pdf/page/Papel.h"
#include "output/pdf/page/TextosDaPagina.h"

namespace tarvo::pdf {

// What the pages of one file share.
struct Recursos {
    explicit Recursos(EscritorPDF& escritor)
        : fontes(escritor),
          figuras(escritor),
          fileiras(escritor, "L", 400),
          paginas(escritor, "P", 60) {}

    FontesPDF fontes;
    FigurasPDF figuras;
    FormulariosPDF fileiras;  // shapes that stand side by side
    FormulariosPDF paginas;   // all shapes of a page
};

// Makes the content stream of one page of a document after the other. Shapes are drawn before the
// texts and pictures that surround them, so that equal frames can be shared; a shape that covers
// any part of an earlier text or picture in another colour is drawn after it, as recorded.
class PaginaPDF {
  public:
    // colocados: see MarcasDaPagina; dpi: see OpcoesPDF.
    PaginaPDF(Recursos& recursos, const Conteudo& conteudo, const std::vector<Colocacao>* colocados,
              int dpi)
        : recursos_(recursos),
          papel_(conteudo),
          grade_(dpi, DeCm(conteudo.AlturaPapel())),
          marcas_(colocados),
          operadores_(recursos.fontes, marcas_),
          textos_(recursos.fontes, conteudo, operadores_, ocupadas_) {}
    PaginaPDF(const PaginaPDF&) = delete;
    PaginaPDF& operator=(const PaginaPDF&) = delete;

    // donos: of the primitives. Valid until the next call.
    const std::string& Desenhar(const Pagina& pagina, std::span<const std::uint32_t> donos,
                                const Substituicoes& substituicoes);
    // What the elements have on the last page.
    [[nodiscard]] const ConteudoMarcado& Marcado() const { return marcas_.Marcado(); }
    // The texts of the last page that were cut.
    [[nodiscard]] const std::vector<Corte>& Cortes() const { return textos_.Cortes(); }

  private:
    template <class F>
    void Desenhar(const F& forma) {
        Acrescentar(grade_.Ajustar(FazerForma(forma, papel_.LugarDe(forma))));
    }
    void Desenhar(const Figura& figura);
    void Desenhar(const Texto& texto) { textos_.Escrever(texto); }

    void Acrescentar(const Forma& forma);
    void EncerrarCamada();
    void EscreverFormas();
    void EscreverFileira(std::span<const Forma> formas);

    Recursos& recursos_;
    Papel papel_;
    Grade grade_;

    // The layer: shapes, and the texts and pictures that come over them.
    std::vector<Forma> formas_;
    MarcasDaPagina marcas_;
    OperadoresDePagina operadores_;
    AreasOcupadas ocupadas_;
    TextosDaPagina textos_;

    std::string saida_;
};

}  // namespace tarvo::pdf
