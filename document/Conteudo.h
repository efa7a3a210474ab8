// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "document/Estrutura.h"

// What a report document holds: plain pages of drawing primitives, each one call of the document's
// interface with all its arguments. Lengths are centimetres from the printable area's top-left
// corner, y downwards; colours are 0x00BBGGRR; texts are UTF-8 as they were passed.
namespace tarvo {

struct Imagem;

struct Caixa {
    double x = 0;
    double y = 0;
    double largura = 0;
    double altura = 0;
    friend bool operator==(const Caixa&, const Caixa&) = default;
};

// A straight line from (x, y) to (x + largura, y + altura).
struct Linha {
    Caixa caixa;
    std::int32_t reservado1 = 0;  // two arguments of the interface without effect
    std::int32_t reservado2 = 0;
    std::int32_t espessura = 1;  // units of 0.5 pt
    std::int16_t estilo = 0;     // 0 solid, 2 dotted
    friend bool operator==(const Linha&, const Linha&) = default;
};

struct Retangulo {
    Caixa caixa;
    bool preenchido = false;
    std::int32_t corBorda = 0;
    std::int32_t corPreenchimento = 0;
    std::int32_t espessura = 1;
    friend bool operator==(const Retangulo&, const Retangulo&) = default;
};

struct RetanguloArredondado {
    Caixa caixa;
    bool preenchido = false;
    double raio = 0;  // cm
    std::int32_t corBorda = 0;
    std::int32_t corPreenchimento = 0;
    std::int32_t espessura = 1;
    friend bool operator==(const RetanguloArredondado&, const RetanguloArredondado&) = default;
};

struct Texto {
    Caixa caixa;
    std::string texto;
    double tamanho = 0;  // points
    std::int32_t cor = 0;
    std::uint16_t fonte = 0;      // index into Conteudo::fontes
    std::uint8_t horizontal = 0;  // 0 left, 1 centre, 2 right
    std::uint8_t vertical = 0;    // 0 top, 1 middle, 2 bottom
    bool negrito = false;
    bool italico = false;
    bool sublinhado = false;
    bool multilinha = false;  // wraps at word boundaries and breaks at CR+LF
    friend bool operator==(const Texto&, const Texto&) = default;
};

struct Figura {
    Caixa caixa;
    const Imagem* imagem = nullptr;
    bool proporcional = false;  // True keeps the picture's proportions, False fills the box
    friend bool operator==(const Figura&, const Figura&) = default;
};

using Primitiva = std::variant<Linha, Retangulo, RetanguloArredondado, Texto, Figura>;
using Pagina = std::vector<Primitiva>;

struct Margens {
    double esquerda = 0;
    double direita = 0;
    double superior = 0;
    double inferior = 0;
    friend bool operator==(const Margens&, const Margens&) = default;
};

// A4 paper, cm.
constexpr double LarguraA4 = 21.0;
constexpr double AlturaA4 = 29.7;

// Whose document it is, as its files say of themselves; what a document does not have is empty.
struct Identificacao {
    std::string contribuinte = {};  // name
    std::string IE = {};
    std::string declaracao = {};  // number
    std::string referencia = {};  // "07/2003", "01 a 12/2003"
    friend bool operator==(const Identificacao&, const Identificacao&) = default;
};

struct Conteudo {
    std::string titulo;
    std::string tituloResumido;
    Identificacao identificacao;
    const Imagem* icone = nullptr;
    std::int32_t orientacao = 0;  // 0 portrait, 1 landscape
    Margens margens;
    std::vector<Pagina> paginas = std::vector<Pagina>(1);
    std::vector<std::string> fontes;  // font names, in the order of their first use
    Estrutura estrutura;
    // What the pages do not show as their reader expects, a sentence each; for previews.
    std::vector<std::string> avisos;

    [[nodiscard]] double LarguraPapel() const { return orientacao == 1 ? AlturaA4 : LarguraA4; }
    [[nodiscard]] double AlturaPapel() const { return orientacao == 1 ? LarguraA4 : AlturaA4; }
    friend bool operator==(const Conteudo&, const Conteudo&) = default;
};

}  // namespace tarvo
