// SPDX-License-Identifier: MIT
#include "document/QuadroPagina.h"

#include "data/Consultas.h"
#include "tests/reports/PaginaEsperada.h"

namespace tarvo {
namespace {

using apoio::Curtas;
using apoio::Textos;
using testing::ElementsAre;

class QuadroPagina : public testing::Test {
  protected:
    // The header of declaration 1 as the database has it now.
    Conteudo Cabecalho(const EstiloCabecalho& estilo = {.titulo = "Título"}) {
        DocumentoRelatorio doc;
        const auto identificacao =
            banco->OpenRecordset(ConsultaIdentificacao("1", 1), TipoRecordset::ForwardOnly);
        ImprimirCabecalho(doc, estilo, 0, 0, *identificacao);
        return doc.Registrado();
    }
    void Declarar(const std::string& colunas) {
        banco.Executar("UPDATE tblDRQ SET " + colunas + " WHERE NroDRQ = 1");
    }

    apoio::BancoDeTeste banco{apoio::DuasDeclaracoes};
};

TEST_F(QuadroPagina, HeaderDrawsTagMarkBarsArmsTitleAndIdentification) {
    EXPECT_EQ(Curtas(Cabecalho(), 0), apoio::CabecalhoEsperado("Título"));
}

TEST_F(QuadroPagina, IdentificationReadsTypeRegimeAndReferenceByTheirCodes) {
    const struct {
        const char* colunas;
        const char* tipo;
        const char* regime;
        const char* referencia;
    } casos[] = {
        {"Tipo = 2, RegTrib = '03'", "Substitutiva", "Dispensado", "07/2003"},
        {"Tipo = 3, RegTrib = '02', Ref2 = '2001-01-01'", "Coligida", "RES", "01 a 07/2003"},
        {"Tipo = 4, RegTrib = '04'", "", "Simples-ST", "07/2003"},
        {"Tipo = 1, RegTrib = '05'", "Normal", "", ""},
        {"Tipo = NULL, RegTrib = NULL", "", "", ""},
        {"Ref1 = NULL, RegTrib = '03'", "", "Dispensado", "12/1899"}};
    for (const auto& caso : casos) {
        Declarar(caso.colunas);
        const auto t = Textos(Cabecalho(), 0);
        ASSERT_EQ(t.size(), 18U);
        EXPECT_EQ(t[13], caso.tipo);
        EXPECT_EQ(t[15], caso.regime);
        EXPECT_EQ(t[17], caso.referencia);
    }
}

TEST_F(QuadroPagina, AnInconsistentDeclarationSaysSoOnEveryPage) {
    for (const auto* consistente : {"0", "NULL"}) {
        Declarar("Consistente = " + std::string(consistente));
        EXPECT_EQ(Textos(Cabecalho(), 0)[1], "DRQ Não Consistida");
    }
}

TEST_F(QuadroPagina, LandscapeKeepsTheGovernmentLinesCentredAndAsksForNoClosingBar) {
    const auto operacoes =
        Curtas(Cabecalho({.titulo = "T", .largura = LarguraPaisagem, .barraFinal = false}), 0);
    EXPECT_EQ(operacoes[4], "T 6 0.85 13.7 0.7 CM Arial 14b #0000ff |Governo do Estado de Valdora");
    EXPECT_EQ(operacoes.back(), "T 20.76 4.85 4.74 0.5 EB Arial 6 |07/2003");
}

TEST(CelulasDoQuadro, PlaceLabelAndValueByTheirStyle) {
    DocumentoRelatorio doc;
    CelulaRotulada(doc, CampoMultilinha, 1, 2, 4, 16.4, "R", "V");
    CelulaRotulada(doc, CampoValor, 1, 2, 4, 0.6, "R", "V");
    CelulaRotulada(doc, CampoTotalNegrito, 1, 2, 4, 0.7, "R", "V");
    Celula(doc, CelulaTitulo, 1, 2, 4, 1, "T");
    const apoio::EstiloEsperado regular{"T ET Arial 6", 0.1, 0.05, 0.05};
    const apoio::EstiloEsperado total{"T ET Arial 9b #808000", 0.1, 0.05, 0.05};
    using apoio::Celula;
    using apoio::operator+;
    EXPECT_EQ(Curtas(doc.Registrado(), 0),
              Celula({1, 2, 4, 16.4}, apoio::Rotulo, "R", {"M ET Arial 8", 0.2, 0.3}, "V") +
                  Celula({1, 2, 4, 0.6}, regular, "R", {"T DB Arial 8", 0.2}, "V") +
                  Celula({1, 2, 4, 0.7}, total, "R", {"T DM Arial 9b", 0.2, 0.05, 0.05}, "V") +
                  Celula({1, 2, 4, 1}, apoio::TituloDeColuna, "T"));
}

}  // namespace
}  // namespace tarvo
