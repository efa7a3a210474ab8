// SPDX-License-Identifier: MIT
#include "reports/RelatorioApuracaoSubTrib.h"

#include "tests/reports/ApuracaoDeTeste.h"

namespace tarvo::apoio {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

const std::string Tabela = "tblApuraçãoSubstituiçãoTributária";

// 051: 300,0025 + 0,0025 of group 5 in two columns; 061 and 064 with four decimals.
constexpr const char* Base = R"sql(
insert into tblContribuinte (IE) values ('1');
insert into tblDRQ (NroDRQ, RegTrib, SaldoCredAntDigST, DeduçõesST)
    values (1, null, 500049, 302), (2, '02', 700000, null);
insert into tblDetalhesCFOPs (NroDRQ, CFOP, Imposto, ImpostoRetidoST, ImpRetSubstitutoST) values
    (1, '5.101', 9990000, 1000025, 25), (1, '5.401', 9990000, 2000000, null),
    (1, '6.101', 0, 9990000, 9990000), (1, '7.101', 0, 9990000, 9990000),
    (1, '1.101', 9990000, null, 400000), (1, '2.101', 0, 9990000, 9990000),
    (1, '3.101', 0, 9990000, 9990000), (2, '5.101', 9990000, null, null);
insert into tblOcorrências (NroDRQ, CódSubItem, Código, Valor, OpPróprias) values
    (1, '002.18', 1, 100000, 0), (1, '002.02', 2, 50049, 0), (1, '002.03', 3, 990000, -1),
    (1, '003.01', 4, 10000, 0), (1, '007.01', 5, 20050, 0), (1, '008.01', 6, null, 0),
    (1, '014.02', 7, 10000, 0), (1, '014.01', 8, 20000, 0), (1, '014.03', 9, 30000, -1);
)sql";

Lista Montar(BancoDeTeste& banco, std::int32_t NumeroDRQ) {
    Construir<RelatorioApuracaoSubTrib>(banco, NumeroDRQ);
    return LinhasDe(banco, Tabela);
}

// 065 is 316,01 - 92,0149 - 0,0302 = 223,9649.
TEST(ApuracaoSubTrib, CountsSubstitutionAmountsWhateverTheRegime) {
    BancoDeTeste banco(Base);
    const auto linhas = Montar(banco, 1);
    ASSERT_THAT(linhas, SizeIs(29));
    EXPECT_THAT(Lista(linhas.begin() + 2, linhas.begin() + 5),
                ElementsAre("002|Outros débitos|||", "|            002.02|5,00||",
                            "|            002.18|10,00||"));
    EXPECT_THAT(
        Lista(linhas.begin() + 20, linhas.begin() + 27),
        ElementsAre("012|TOTAL (060+061)||062|92,01", "|APURAÇÃO DOS SALDOS (ST)|||",
                    "013|Saldo devedor (055-062)||063|224,00", "014|Deduções|||",
                    "|            014.02|1,00||", "|            014.01|2,00||", "|||064|0,03"));
    EXPECT_EQ(Totais(linhas),
              "051 300,01; 052 15,00; 053 1,00; 055 316,01; 056 40,00; 057 2,01; 058 0,00; "
              "060 42,01; 061 50,00; 062 92,01; 063 224,00; 064 0,03; 065 223,96; 066 0,00; ");
    EXPECT_EQ(Totais(Montar(banco, 2)),
              "051 0,00; 052 0,00; 053 0,00; 055 0,00; 056 0,00; 057 0,00; 058 0,00; "
              "060 0,00; 061 70,00; 062 70,00; 063 0,00; 064 0,00; 065 0,00; 066 70,00; ");
}

TEST(ApuracaoSubTrib, ItsFieldsCanBeReadWithoutBuilding) {
    BancoDeTeste banco(Base);
    const RelatorioApuracaoSubTrib relatorio;
    const auto campos = [&](BancoDados* scit_db, std::int32_t NroDRQ) {
        return Lista{relatorio.Campo051st(scit_db, NroDRQ), relatorio.Campo052st(scit_db, NroDRQ),
                     relatorio.Campo053st(scit_db, NroDRQ), relatorio.Campo056st(scit_db, NroDRQ),
                     relatorio.Campo057st(scit_db, NroDRQ), relatorio.Campo058st(scit_db, NroDRQ)};
    };
    EXPECT_THAT(campos(&*banco, 1),
                ElementsAre("300,01", "15,00", "1,00", "40,00", "2,01", "0,00"));
    EXPECT_THAT(campos(&*banco, 77), testing::Each("0,00"));
    EXPECT_THAT(campos(nullptr, 1), testing::Each(""));
    EXPECT_THAT(LinhasDe(banco, Tabela), SizeIs(0));
}

TEST(ApuracaoSubTrib, ItsPagesSayWhatTheyAre) {
    BancoDeTeste banco(Base);
    const Conteudo c = Construir<RelatorioApuracaoSubTrib>(banco, 2);
    EXPECT_EQ(c.titulo, "Relatório de Apuração do ICMS por Substituição Tributária");
    EXPECT_EQ(c.tituloResumido, "Apuração ICMS Sub. Tribut.");
    EXPECT_THAT(TextosEm(c, 0, 2.9), ElementsAre("Apuração do ICMS - Substituição Tributária"));
    EXPECT_EQ(LinhasDesde(18.4, c, 0),
              Lista{"18.50: 016 Saldo credor a transportar (062-055)  066 70,00"});
}

TEST(ApuracaoSubTrib, TheDeclarationIsMissedAtItsCreditBalance) {
    BancoDeTeste banco(Base);
    EXPECT_EQ(ErroDe([&] { Montar(banco, 77); }).Numero(), NumeroErro::RegistroAtualAusente);
    EXPECT_EQ(LinhasDe(banco, Tabela).back(), "010|SUBTOTAL (056+057+058)||060|0,00");
    banco.Executar("update tblDRQ set SaldoCredAntDigST = null;");
    EXPECT_EQ(ErroDe([&] { Montar(banco, 1); }).Numero(), NumeroErro::UsoInvalidoDeNull);
    EXPECT_EQ(LinhasDe(banco, Tabela).back(), "010|SUBTOTAL (056+057+058)||060|42,01");
}

}  // namespace
}  // namespace tarvo::apoio
