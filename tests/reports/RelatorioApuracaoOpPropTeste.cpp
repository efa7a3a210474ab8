// SPDX-License-Identifier: MIT
#include "reports/RelatorioApuracaoOpProp.h"

#include "tests/reports/ApuracaoDeTeste.h"

namespace tarvo::apoio {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

const std::string Tabela = "tblApuraçãoOperaçõesPróprias";

constexpr const char* Base = R"sql(
insert into tblContribuinte (IE) values ('1');
insert into tblDRQ (NroDRQ, RegTrib, SaldoCredAntDig, DeduçõesRPA, ICMSFixPerRES, OutrasRES) values
    (1, '01', 1000049, 950302, null, null), (2, '02', 0, null, 100050, 200050),
    (3, '03', 0, null, null, null), (4, '04', 0, 10000, 20000, 30000);
insert into tblDetalhesCFOPs (NroDRQ, CFOP, Imposto) values
    (2, '5.101', 300000), (3, '5.101', 300000), (4, '5.101', 300000);
)sql";

// Declaration 1: 051 to 058 end in halves or less of a cent, 061 and 064 in less of one.
constexpr const char* Detalhes1 = R"sql(
insert into tblDetalhesCFOPs (NroDRQ, CFOP, Imposto, ImpostoRetidoST) values
    (1, '5.101', 10001249, 5000000), (1, '6.102', 2000000, 0), (1, '7.101', 1, 0),
    (1, '5.999', null, 0), (1, '1.101', 3000000, 0), (1, '2.101', 40, 0), (1, '3.101', 9, 0),
    (1, '4.101', 7770000, 0);
insert into tblOcorrências (NroDRQ, CódSubItem, Código, Valor, OpPróprias) values
    (1, '002.18', 1, 100050, -1), (1, '002.02', 2, 50000, -1), (1, '002.99', 3, null, -1),
    (1, '002.50', 4, 990000, 0), (1, '007.01', 5, 201000, -1), (1, '008.01', 6, -40, -1),
    (1, '014.02', 7, 10000, -1), (1, '014.01', 8, 20000, -1), (1, '014.03', 9, 30000, 0),
    (2, '002.18', 10, 0, -1), (1, '004.01', 11, 990000, -1);
)sql";

Lista Montar(BancoDeTeste& banco, std::int32_t NumeroDRQ) {
    Construir<RelatorioApuracaoOpProp>(banco, NumeroDRQ);
    return LinhasDe(banco, Tabela);
}

// 1.200,125 and 15,005 enter 055 as printed; 100,0049 and 95,0302 keep their decimals, so that
// 065 is 795,0351 - 95,0302 = 700,0049.
TEST(ApuracaoOpProp, RegimeRPARoundsTheSummedFieldsAndNothingElse) {
    BancoDeTeste banco(std::string(Base) + Detalhes1);
    EXPECT_THAT(
        Montar(banco, 1),
        ElementsAre(
            "|DÉBITO DO IMPOSTO|||", "001|Por saídas com débito do imposto||051|1.200,13",
            "002|Outros débitos|||", "|            002.02|5,00||", "|            002.18|10,01||",
            "|            002.99|||", "| ||052|15,01", "003|Estorno de créditos|||", "| ||053|0,00",
            "005|SUBTOTAL (051+052+053)||055|1.215,14", "|CRÉDITO DO IMPOSTO|||",
            "006|Por entradas com crédito do imposto||056|300,00", "007|Outros créditos|||",
            "|            007.01|20,10||", "| ||057|20,10", "008|Estorno de débitos|||",
            "|            008.01|0,00||", "| ||058|0,00", "010|SUBTOTAL (056+057+058)||060|320,10",
            "011|Saldo credor do período anterior||061|100,00", "012|TOTAL (060+061)||062|420,10",
            "|APURAÇÃO DOS SALDOS (RPA)|||", "013|Saldo devedor (055-062)||063|795,04",
            "014|Deduções|||", "|            014.02|1,00||", "|            014.01|2,00||",
            "|||064|95,03", "015|Imposto a recolher (063-064)||065|700,00",
            "016|Saldo credor a transportar (062-055)||066|0,00"));
    EXPECT_EQ(
        banco.Linhas("select Campo, Linha, NroDRQ from " + Tabela + " where Total = '064'", 3),
        Lista{"(nulo)|(nulo)|1"});
}

TEST(ApuracaoOpProp, RegimeRESRoundsItsTwoComponentsAndShowsWhatIsFixedInExcess) {
    BancoDeTeste banco(Base + Subitens(2, "014", 1, true));
    const auto linhas = Montar(banco, 2);
    EXPECT_THAT(
        Lista(linhas.begin() + 16, linhas.end()),
        ElementsAre("|APURAÇÃO DOS SALDOS (RES)|||", "013|Saldo devedor (055-062)||063|30,00",
                    "014|Deduções|||", "|      ICMS fixado para o período|10,01||",
                    "|      Outras|||", "|            014.01|1,00||", "| ||064|30,02",
                    "015|Imposto a recolher (063-064)||065|0,00",
                    "|Fixado a maior (064-063)||067|0,02",
                    "016|Saldo credor a transportar (062-055)||066|0,00"));
    banco.Executar("update tblDRQ set OutrasRES = null where NroDRQ = 2;");
    EXPECT_THAT(Totais(Montar(banco, 2)),
                HasSubstr("063 30,00; 064 10,01; 065 19,99; 067 0,00; 066 0,00; "));
}

TEST(ApuracaoOpProp, RegimeDispensadoDeductsLikeRPAAndOtherRegimesDoNot) {
    BancoDeTeste banco(Base + Subitens(4, "014", 2, true));
    const auto dispensado = Montar(banco, 3);
    EXPECT_THAT(dispensado, Contains("|APURAÇÃO DOS SALDOS (DISPENSADO)|||"));
    EXPECT_THAT(Totais(dispensado), HasSubstr("063 30,00; 064 0,00; 065 30,00; 066 0,00; "));

    for (const char* regime : {"04", "05", ""}) {
        banco.Executar("update tblDRQ set RegTrib = '" + std::string(regime) +
                       "' where NroDRQ = 4;");
        const auto linhas = Montar(banco, 4);
        EXPECT_THAT(linhas, SizeIs(19)) << regime;
        EXPECT_THAT(Totais(linhas), HasSubstr("062 0,00; 063 30,00; 065 30,00; 066 0,00; "));
    }
}

TEST(ApuracaoOpProp, ACreditBalanceIsCarriedForward) {
    BancoDeTeste banco(Base + Subitens(1, "002", 3, true));
    EXPECT_THAT(Totais(Montar(banco, 1)),
                HasSubstr("055 3,00; 056 0,00; 057 0,00; 058 0,00; 060 0,00; 061 100,00; "
                          "062 100,00; 063 0,00; 064 95,03; 065 0,00; 066 97,00; "));
}

TEST(ApuracaoOpProp, AmountsStayExactInTheWholeRangeOfCurrency) {
    BancoDeTeste banco(std::string(Base) +
                       "update tblDetalhesCFOPs set Imposto = 9223372036854775751;");
    EXPECT_THAT(Totais(Montar(banco, 4)), HasSubstr("065 922.337.203.685.477,58; "));
    banco.Executar(Subitens(4, "002", 1, true));
    EXPECT_EQ(ErroDe([&] { Montar(banco, 4); }).Numero(), NumeroErro::Estouro);
}

TEST(ApuracaoOpProp, ThirtyOneLinesFillAPageAndTheNextOneOpensAnother) {
    const FimDePagina fim{23.5, 5.9};
    BancoDeTeste banco(Base + Subitens(1, "003", 9, true));
    fim.Conferir(Construir<RelatorioApuracaoOpProp>(banco),
                 {"23.90: 016 Saldo credor a transportar (062-055)  066 91,00"}, {});
    banco.Executar(Subitens(1, "008", 1, true));
    fim.Conferir(Construir<RelatorioApuracaoOpProp>(banco),
                 {"23.90: 015 Imposto a recolher (063-064)  065 0,00"},
                 {"5.90: 016 Saldo credor a transportar (062-055)  066 92,00"});
}

TEST(ApuracaoOpProp, ALineIsFiveCells) {
    BancoDeTeste banco(DuasDeclaracoes + Subitens(1, "002", 1, true) +
                       "update tblDRQ set SaldoCredAntDig = 0;");
    const Conteudo c = Construir<RelatorioApuracaoOpProp>(banco);
    EXPECT_EQ(c.titulo, "Relatório de Apuração do ICMS sobre Operações Próprias");
    EXPECT_EQ(c.tituloResumido, "Apuração ICMS Oper. Próprias");
    Lista inicio = CabecalhoEsperado("Apuração do ICMS - Operações Próprias");
    const EstiloEsperado centro{"T CM Arial 8b"};
    const EstiloEsperado direita{"T DM Arial 8", 0.2};
    for (double y = 5.9;
         const Lista& linha : {Lista{"", "DÉBITO DO IMPOSTO", "", "", ""},
                               {"001", "Por saídas com débito do imposto", "", "051", "0,00"},
                               {"002", "Outros débitos", "", "", ""},
                               {"", "            002.01", "1,00", "", ""}}) {
        // A sub-item's amount stands inside the cell of its label.
        inicio = inicio + Celula({0, y, 0.9, 0.6}, centro, linha[0]) +
                 Celula({0.9, y, 11.7, 0.6}, {"T EM Courier New 8", 0.2}, linha[1]) +
                 Celula({0.9, y, 11.7, 0.6}, direita, linha[2]) +
                 Celula({12.6, y, 1.1, 0.6}, centro, linha[3]) +
                 Celula({13.7, y, 3.3, 0.6}, direita, linha[4]);
        y += 0.6;
    }
    Lista operacoes = Curtas(c, 0);
    operacoes.resize(inicio.size());
    EXPECT_EQ(operacoes, inicio);
}

TEST(ApuracaoOpProp, ASecondBuildReplacesTheLinesOfTheFirstEvenWithoutTaxpayer) {
    BancoDeTeste banco(std::string(Base) + Detalhes1);
    RelatorioApuracaoOpProp relatorio;
    relatorio.Construir(*banco, "1", 1);
    relatorio.Construir(*banco, "9", 4);
    EXPECT_EQ(relatorio.Documento().paginas, std::vector<Pagina>(1));
    EXPECT_THAT(banco.Linhas("select NroDRQ from " + Tabela, 1),
                testing::AllOf(SizeIs(19), Each("4")));
}

TEST(ApuracaoOpProp, WhatIsMissingEndsTheBuildAtTheLineThatNeedsIt) {
    struct Caso {
        const char* preparo;
        std::int32_t NumeroDRQ;
        NumeroErro numero;
        const char* ultimaLinha;
    };
    for (const auto& [preparo, NumeroDRQ, numero, ultimaLinha] : {
             Caso{"", 77, NumeroErro::RegistroAtualAusente, ""},
             Caso{"update tblDRQ set RegTrib = null;", 1, NumeroErro::UsoInvalidoDeNull, ""},
             Caso{"update tblDRQ set SaldoCredAntDig = null;", 1, NumeroErro::UsoInvalidoDeNull,
                  "010|SUBTOTAL (056+057+058)||060|320,10"},
             Caso{"update tblDRQ set ICMSFixPerRES = null;", 2, NumeroErro::UsoInvalidoDeNull,
                  "014|Deduções|||"},
             Caso{"drop table tblOcorrências;", 1, NumeroErro::TabelaInexistente,
                  "002|Outros débitos|||"},
         }) {
        SCOPED_TRACE(preparo);
        BancoDeTeste banco(std::string(Base) + Detalhes1);
        Montar(banco, 4);
        banco.Executar(preparo);
        EXPECT_EQ(ErroDe([&, n = NumeroDRQ] { Montar(banco, n); }).Numero(), numero);
        const auto linhas = LinhasDe(banco, Tabela);
        EXPECT_EQ(linhas.empty() ? "" : linhas.back(), ultimaLinha);
    }
}

}  // namespace
}  // namespace tarvo::apoio
