// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "document/Conteudo.h"
#include "document/Substituicoes.h"
#include "output/pdf/file/FontesPDF.h"
#include "output/pdf/page/AreasOcupadas.h"
#include "output/pdf/page/OperadoresDePagina.h"
#include "output/pdf/page/Papel.h"
#include "output/pdf/text/Composicao.h"

namespace tarvo::pdf {

// A text that is not wholly on the page, whole.
struct Corte {
    Caixa caixa;  // cm, as recorded
    std::string texto;
};

// The texts of the pages of one document: each is set, fitted to its box and placed in it by its
// alignment codes.
class TextosDaPagina {
  public:
    // What is passed must outlive this.
    TextosDaPagina(FontesPDF& fontes, const Conteudo& conteudo, OperadoresDePagina& operadores,
                   AreasOcupadas& ocupadas)
        : fontes_(fontes),
          conteudo_(conteudo),
          papel_(conteudo),
          operadores_(operadores),
          ocupadas_(ocupadas),
          fontesUsadas_(conteudo.fontes.size() * 4) {}

    void IniciarPagina(const Substituicoes& substituicoes);
    void Escrever(const Texto& texto);
    // Of this page so far.
    [[nodiscard]] const std::vector<Corte>& Cortes() const { return cortes_; }

  private:
    FonteDoArquivo& FonteDe(const Texto& texto);
    [[nodiscard]] Lugar LugarDe(const Texto& texto) const;
    bool EscreverSimples(const Texto& texto, const Lugar& lugar, const EstadoDeTexto& estado,
                         std::string_view conteudo);
    void EscreverComposto(const Texto& texto, const Lugar& lugar, const EstadoDeTexto& estado,
                          const TextoComposto& composto, bool comTextoReal);
    void Ocupar(const EstadoDeTexto& estado, Centesimos x, Centesimos y, Centesimos largura);

    FontesPDF& fontes_;
    const Conteudo& conteudo_;
    Papel papel_;
    OperadoresDePagina& operadores_;
    AreasOcupadas& ocupadas_;
    std::vector<FonteDoArquivo*> fontesUsadas_;  // by font index and style
    const Substituicoes* substituicoes_ = nullptr;
    std::vector<Corte> cortes_;
    // The last text and how much of its box it takes.
    const Texto* anterior_ = nullptr;
    Centesimos larguraAnterior_ = 0;
    std::string codigos_;
    std::string substituido_;
};

}  // namespace tarvo::pdf
