#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "data/Publico.h"

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
    Tabela,          // children: LinhaDeTabela
    LinhaDeTabela,   // children: CelulaDeTitulo, Celula
    CelulaDeTitulo,  // heading cell
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

enum class FuncaoDaLinha : std::uint8_t { Titulos, Dados, TituloDeGrupo, Subtotal, Total };

// What the text of a cell or value is.
enum class Natureza : std::uint8_t { Texto, Codigo, Quantia, Data };

// What a heading cell heads.
enum class Escopo : std::uint8_t { Coluna, Linha };

struct Elemento {
    TipoElemento tipo = TipoElemento::Documento;
    FuncaoDaLinha funcao = FuncaoDaLinha::Dados;  // of a LinhaDeTabela
    Natureza natureza = Natureza::Texto;          // of a Celula or ValorDeCampo
    Escopo escopo = Escopo::Coluna;               // of a CelulaDeTitulo
    std::uint8_t colunas = 1;                     // spanned by a cell
    std::uint8_t linhas = 1;
    std::uint32_t pai = 0;  // index of the parent, set when opened
    friend bool operator==(const Elemento&, const Elemento&) = default;
};

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

class DocumentoRelatorio;

// While it lives, what is drawn is the content of one element, or decoration. They nest: the inner
// one's element is a child of the outer's; within decoration all is decoration.
class TARVO_PUBLICO Trecho {
  public:
    // Begins a new element below the one that is open.
    Trecho(DocumentoRelatorio& documento, const Elemento& elemento);
    // Goes on with an element of that index begun before, or with Decoracao.
    Trecho(DocumentoRelatorio& documento, std::uint32_t elemento);
    ~Trecho();
    Trecho(const Trecho&) = delete;
    Trecho& operator=(const Trecho&) = delete;

    // Index of the element, for going on with it later; Decoracao within decoration.
    [[nodiscard]] std::uint32_t Indice() const { return indice_; }

  private:
    DocumentoRelatorio& documento_;
    std::uint32_t indice_;
    std::uint32_t anterior_;
};

}  // namespace tarvo
