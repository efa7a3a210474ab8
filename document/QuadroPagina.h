// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

#include "data/BancoDados.h"
#include "document/DocumentoRelatorio.h"

// The page frame that all reports share: page header with the identification block, footer, and
// the framed cells. Every routine takes its origin (x, y) in cm.
namespace tarvo {

namespace Cor {
constexpr std::int32_t Preto = 0;
constexpr std::int32_t Branco = 0xFFFFFF;
constexpr std::int32_t Vermelho = 255;
constexpr std::int32_t Teal = 0x808000;
constexpr std::int32_t Cinza = 0x808080;
}  // namespace Cor

namespace Alinhamento {
constexpr std::int32_t Esquerda = 0;
constexpr std::int32_t Centro = 1;
constexpr std::int32_t Direita = 2;
constexpr std::int32_t Topo = 0;
constexpr std::int32_t Meio = 1;
constexpr std::int32_t Base = 2;
}  // namespace Alinhamento

constexpr double LarguraRetrato = 17.0;   // printable width, cm, with 2.0 cm margins
constexpr double LarguraPaisagem = 25.7;  // the same in landscape
constexpr double YRodape = 25.0;          // origin of the footer in portrait

// A page limit: a block that ends exactly at the nominal limit (cm) still fits.
constexpr double Limite(double nominal) {
    return nominal + 0.0001;
}

// How a text stands in its box: inset from the cell's edges, alignment, font.
struct EstiloTexto {
    double recuoX = 0.1;   // cm, left and right
    double recuoTopo = 0;  // cm
    double recuoBase = 0;  // cm
    std::int32_t horizontal = Alinhamento::Esquerda;
    std::int32_t vertical = Alinhamento::Meio;
    std::string_view fonte = "Arial";
    double tamanho = 8;  // points
    bool negrito = false;
    std::int32_t cor = Cor::Preto;
    bool multilinha = false;
};

// A framed cell with a label and a value.
struct EstiloCampo {
    EstiloTexto rotulo;
    EstiloTexto valor;
};

// The frame of every cell: a rectangle with corners of 0.1 cm, black on nothing.
void DesenharMoldura(DocumentoRelatorio& doc, double x, double y, double largura, double altura);
// A text in the box (x, y, largura, altura) by its style, without a frame.
void EscreverEmCaixa(DocumentoRelatorio& doc, const EstiloTexto& estilo, double x, double y,
                     double largura, double altura, std::string_view texto);
// Frame and text.
void Celula(DocumentoRelatorio& doc, const EstiloTexto& estilo, double x, double y, double largura,
            double altura, std::string_view texto);
// The same as an element of its own.
void Celula(DocumentoRelatorio& doc, Elemento elemento, const EstiloTexto& estilo, double x,
            double y, double largura, double altura, std::string_view texto);
// Frame, label, value: a field of the document, or the element (a cell) that holds them. The value
// is of the element's kind.
void CelulaRotulada(DocumentoRelatorio& doc, const EstiloCampo& estilo, double x, double y,
                    double largura, double altura, std::string_view rotulo, std::string_view valor,
                    Elemento elemento = {.tipo = TipoElemento::Campo});
// A filled teal bar 0.1 cm high.
void Barra(DocumentoRelatorio& doc, double x, double y, double largura);

// The cells of the frame, with CelulaRotulada.
extern const EstiloCampo Campo;
extern const EstiloCampo CampoPequeno;
extern const EstiloCampo CampoMultilinha;         // value in Arial 8 (registration report)
extern const EstiloCampo CampoMultilinhaPequeno;  // value in Arial 6 (sub-item details)
extern const EstiloCampo CampoValor;
extern const EstiloCampo CampoTotal;
extern const EstiloCampo CampoTotalNegrito;

// Cells with a text alone, with Celula.
extern const EstiloTexto TituloQuadro;          // title frames of the page header
extern const EstiloTexto CelulaTitulo;          // column heading
extern const EstiloTexto CelulaValor;           // amount in a narrow column, Arial 6
extern const EstiloTexto CelulaDireitaRecuada;  // amount in a wide column, Arial 8
extern const EstiloTexto CelulaRotulo;          // row label, Courier New bold
extern const EstiloTexto CelulaTextoFixo;       // text of a row, Courier New

// The printed words for a declaration's type (1 to 3) and tax regime ("01" to "04"); "" for any
// other.
std::string_view TipoDaDRQ(std::int32_t tipo);
std::string_view RegimeTributario(std::string_view codigo);

// What differs between the page headers of the reports.
struct EstiloCabecalho {
    std::string_view titulo;
    double largura = LarguraRetrato;  // page width, cm
    double yTitulo = 2.9;             // top of the title frame, cm
    double alturaTitulo = 0.7;        // 0.7 for one line, 1.4 for two
    double tamanhoTitulo = 14;        // points
    double yIdentificacao = 3.6;      // top of the identification block, cm
    bool barraFinal = true;           // the bar that closes the identification block
};

// The header from the tag to the title frame. A null identificacao is the short form, without
// consistency mark; otherwise the mark is read from its current row.
void ImprimirTopo(DocumentoRelatorio& doc, const EstiloCabecalho& estilo, double x, double y,
                  Recordset* identificacao);
// The block that identifies taxpayer and declaration, read from the current row.
void ImprimirIdentificacao(DocumentoRelatorio& doc, const EstiloCabecalho& estilo, double x,
                           double y, Recordset& identificacao);
// Both: the page header of a declaration report.
void ImprimirCabecalho(DocumentoRelatorio& doc, const EstiloCabecalho& estilo, double x, double y,
                       Recordset& identificacao);
// Date, time and "Página n de m" in three cells under a bar; largura is the page width in cm.
void ImprimirRodape(DocumentoRelatorio& doc, double x, double y, double largura = LarguraRetrato);

}  // namespace tarvo
