#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "document/Conteudo.h"
#include "output/pdf/RenderizadorPDF.h"
#include "output/pdf/file/FontesPDF.h"
#include "output/pdf/page/EscritaPDF.h"
#include "output/pdf/page/Figuras.h"
#include "output/pdf/page/Formas.h"
#include "output/pdf/page/Marcadores.h"
#include "output/pdf/page/Moldes.h"
#include "output/pdf/text/Composicao.h"

namespace tarvo::pdf {

// What the pages of one file share.
struct Recursos {
    explicit Recursos(EscritorPDF& escritor)
        : fontes(escritor),
          figuras(escritor),
          linhas(escritor, "L", 400),
          paginas(escritor, "P", 60) {}

    FontesPDF fontes;
    FigurasPDF figuras;
    Moldes linhas;   // rows of shapes
    Moldes paginas;  // all shapes of a page
};

// Makes the content stream of one page after the other. Shapes are drawn before the texts and
// pictures that surround them, so that equal frames can be shared; a shape that covers any part of
// an earlier text or picture in another colour is drawn after it, as recorded.
class PaginaPDF {
  public:
    PaginaPDF(Recursos& recursos, const Conteudo& conteudo)
        : recursos_(recursos), conteudo_(conteudo), fontes_(conteudo.fontes.size() * 4) {}

    // Valid until the next call. Texts that were cut go to cortados, without their page.
    const std::string& Desenhar(const Pagina& pagina, const Substituicoes& substituicoes,
                                std::vector<TextoCortado>& cortados);

  private:
    // A text or a picture that stands on the page since the last shape was put out.
    struct Pendente {
        Retangular area;
        std::int32_t cor = 0;  // SemCor for pictures
    };

    [[nodiscard]] Centesimos X(double cm) const { return DeCm(conteudo_.margens.esquerda + cm); }
    [[nodiscard]] Centesimos Y(double cm) const {
        return DeCm(conteudo_.AlturaPapel()) - DeCm(conteudo_.margens.superior + cm);
    }

    template <class F>
    void DesenharForma(const F& forma) {
        Acrescentar(FazerForma(forma, X(forma.caixa.x), Y(forma.caixa.y)));
    }
    void Desenhar(const Linha& linha) { DesenharForma(linha); }
    void Desenhar(const Retangulo& retangulo) { DesenharForma(retangulo); }
    void Desenhar(const RetanguloArredondado& retangulo) { DesenharForma(retangulo); }
    void Desenhar(const Figura& figura);
    void Desenhar(const Texto& texto);

    void Acrescentar(const Forma& forma);
    [[nodiscard]] bool CobreAlgo(const Forma& forma) const;
    void Pender(const Retangular& area, std::int32_t cor);
    void EncerrarCamada();
    void EscreverFormas();
    void EscreverLinhaDeFormas(std::span<const Forma> formas);

    FonteDoArquivo& FonteDe(const Texto& texto);
    bool EscreverSimples(const Texto& texto, const Letra& letra, std::string_view conteudo);
    void EscreverComposto(const Texto& texto, const Letra& letra, const TextoComposto& composto);
    void PenderTexto(const Letra& letra, Centesimos x, Centesimos y, Centesimos largura);

    Recursos& recursos_;
    const Conteudo& conteudo_;
    std::vector<FonteDoArquivo*> fontes_;  // by font index and style
    const Substituicoes* substituicoes_ = nullptr;
    std::vector<TextoCortado>* cortados_ = nullptr;

    // The layer: shapes, and the texts and pictures that come over them.
    std::vector<Forma> formas_;
    EscritaPDF escrita_;
    std::vector<Pendente> pendentes_;
    std::vector<Pendente> porCor_;  // union of the pending areas of each colour

    std::string saida_;
    std::string codigos_;
    std::string substituido_;
};

}  // namespace tarvo::pdf
