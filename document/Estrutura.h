// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

// What a document shows, beside how it is drawn: a tree of elements, and for each primitive the
// element whose content it is. Readers that cannot see the page, spreadsheets and outlines follow
// it. The primitives, their order and the JSON form do not depend on it.
namespace tarvo {

enum class TipoElemento : std::uint8_t {
    Documento,  // the root
    Titulo,     // title of the document
    Secao,      // heading of a section; ordered among its siblings, not around what follows it
    Paragrafo,  // remark, or any other text
    Campo,      // label and value; children: Rotulo, ValorDeCampo
    Rotulo,
    ValorDeCampo,
    // Children: LinhaDeTabela. Heading rows stand once, group titles perhaps above them; headings
    // drawn again further down are decoration. Every row covers the same number of columns.
    Tabela,
    LinhaDeTabela,  // children: CelulaDeTitulo, Celula
    // A heading cell. Either kind of cell may hold the label and the value of one box as children
    // (Rotulo, ValorDeCampo); over several columns the label then stands in the first, the value
    // in the last, but of a group's title both in the first.
    CelulaDeTitulo,
    Celula,
    Figura,  // a picture; its text stands with the image
};

// Whether texts and pictures can be the content of such an element; the others hold elements alone.
constexpr bool TemConteudo(TipoElemento tipo) {
    switch (tipo) {
        case TipoElemento::Documento:
        case TipoElemento::Campo:
        case TipoElemento::Tabela:
        case TipoElemento::LinhaDeTabela:
            return false;
        default:
            return true;
    }
}

// A Subtotal closes its group, a Total all that stands above it.
enum class FuncaoDaLinha : std::uint8_t { Titulos, Dados, TituloDeGrupo, Subtotal, Total };

// What the text of a cell or value is.
enum class Natureza : std::uint8_t { Texto, Codigo, Quantia, Data };

// What a heading cell heads.
enum class Escopo : std::uint8_t { Coluna, Linha };

struct Elemento {
    TipoElemento tipo = TipoElemento::Documento;
    FuncaoDaLinha funcao = FuncaoDaLinha::Dados;  // of a LinhaDeTabela
    Natureza natureza = Natureza::Texto;          // of a cell of either kind or a ValorDeCampo
    Escopo escopo = Escopo::Coluna;               // of a CelulaDeTitulo
    std::uint8_t colunas = 1;                     // spanned by a cell
    std::uint8_t linhas = 1;
    std::uint32_t pai = 0;  // index of the parent, set when opened
    friend bool operator==(const Elemento&, const Elemento&) = default;
};

constexpr Elemento LinhaDe(FuncaoDaLinha funcao) {
    return {.tipo = TipoElemento::LinhaDeTabela, .funcao = funcao};
}
constexpr Elemento TituloDeColuna(int colunas = 1, int linhas = 1) {
    return {.tipo = TipoElemento::CelulaDeTitulo,
            .colunas = static_cast<std::uint8_t>(colunas),
            .linhas = static_cast<std::uint8_t>(linhas)};
}
constexpr Elemento TituloDeLinha(Natureza natureza = Natureza::Texto, int colunas = 1) {
    return {.tipo = TipoElemento::CelulaDeTitulo,
            .natureza = natureza,
            .escopo = Escopo::Linha,
            .colunas = static_cast<std::uint8_t>(colunas)};
}
constexpr Elemento CelulaDe(Natureza natureza, int colunas = 1) {
    return {.tipo = TipoElemento::Celula,
            .natureza = natureza,
            .colunas = static_cast<std::uint8_t>(colunas)};
}

// Elements stand in the reader's order: every parent before its children, siblings one after the
// other. A cell that shows nothing is an element without content; two texts in one cell are one
// cell's content.
struct Estrutura {
    static constexpr std::uint32_t Raiz = 0;
    // Owner of what is there for the eye alone: frames, bars, footers, repeated headers.
    static constexpr std::uint32_t Decoracao = std::numeric_limits<std::uint32_t>::max();

    std::vector<Elemento> elementos = std::vector<Elemento>(1);
    // For each page, for each of its primitives, its owner: an element that has content, or
    // Decoracao.
    std::vector<std::vector<std::uint32_t>> donos = std::vector<std::vector<std::uint32_t>>(1);
    friend bool operator==(const Estrutura&, const Estrutura&) = default;
};

}  // namespace tarvo
