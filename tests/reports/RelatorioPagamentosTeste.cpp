// SPDX-License-Identifier: MIT
#include "reports/RelatorioPagamentos.h"

#include "tests/reports/PaginaEsperada.h"

namespace tarvo::apoio {
namespace {

using testing::ElementsAre;

constexpr double Corpo = 5.9;
const EstiloEsperado Fixo{"T EM Courier New 8", 0.2};

// Payments of 1,00 each.
std::string Pagamentos(int quantos, const std::string& opProprias) {
    return Repetir(quantos,
                   "insert into tblPagamento (NroDRQ, OpPróprias, Data, Valor) select 1, " +
                       opProprias + ", '2003-07-05', 10000 from n");
}

Lista Titulos(double y, const std::string& grupo) {
    return Celula({0, y, 17, 0.6}, {"T CM Arial 10b"}, grupo) +
           Celula({0, y + 0.6, 12, 0.6}, Fixo, "Data de Vencimento") +
           Celula({12, y + 0.6, 5, 0.6}, Fixo, "Valor");
}

Lista Linha(double y, const std::string& data, const std::string& valor) {
    return Celula({0, y, 12, 0.6}, Fixo, data) +
           Celula({12, y, 5, 0.6}, {"T DM Arial 8", 0.2}, valor);
}

Lista Total(double x, double y, const std::string& valor) {
    return Celula({x, y, 12, 0.6}, {"T EM Courier New 8b", 0.2}, "Total") +
           Celula({x + 12, y, 5, 0.6}, {"T DM Arial 8b", 0.2}, valor);
}

TEST(RelatorioPagamentos, PrintsOwnOperationsThenSubstitutionEachWithItsTotal) {
    BancoDeTeste banco(std::string(DuasDeclaracoes) + R"sql(
        insert into tblPagamento (NroDRQ, OpPróprias, Data, Valor) values
        (1, 0, '2003-07-20', 12345600), (1, -1, '2003-07-09', 1000), (2, -1, '2003-07-09', 1),
        (1, -1, null, 2000), (1, 0, '2003-07-03', -345600);)sql");
    ConferirPagina(Construir<RelatorioPagamentos>(banco),
                   CabecalhoEsperado("Datas de Pagamento") + Titulos(5.9, "Operações Próprias") +
                       Linha(7.1, "30/12/1899", "0,20") + Linha(7.7, "09/07/2003", "0,10") +
                       Total(0, 8.3, "0,30") + Titulos(8.9, "Substituição Tributária") +
                       Linha(10.1, "03/07/2003", "-34,56") + Linha(10.7, "20/07/2003", "1.234,56") +
                       Total(0, 11.3, "1.200,00") + RodapeEsperado());
}

TEST(RelatorioPagamentos, WithoutPaymentsOnlyAZeroTotalStands) {
    BancoDeTeste banco(DuasDeclaracoes);
    ConferirPagina(
        Construir<RelatorioPagamentos>(banco),
        CabecalhoEsperado("Datas de Pagamento") + Total(0, 5.9, "0,00") + RodapeEsperado());
}

TEST(RelatorioPagamentos, APaymentOfNoKindCountsAsSubstitutionTax) {
    BancoDeTeste banco(DuasDeclaracoes + Pagamentos(1, "null") + Pagamentos(1, "0"));
    EXPECT_THAT(LinhasDesde(Corpo, Construir<RelatorioPagamentos>(banco), 0),
                ElementsAre("5.90: Substituição Tributária", "6.50: Data de Vencimento Valor",
                            "7.10: 05/07/2003 1,00", "7.70: 05/07/2003 1,00", "8.30: Total 2,00"));
}

TEST(RelatorioPagamentos, EveryBlockKeepsThePageEnd) {
    const FimDePagina fim{22.6, Corpo};
    const auto linha = [](const std::string& y) { return y + ": 05/07/2003 1,00"; };
    const auto titulos = [](const std::string& y, const std::string& yColunas) {
        return Lista{y + ": Substituição Tributária", yColunas + ": Data de Vencimento Valor"};
    };
    const auto conferir = [&](int proprias, int substituicao, const Lista& primeira,
                              const Lista& segunda) {
        BancoDeTeste banco(DuasDeclaracoes + Pagamentos(proprias, "-1") +
                           (substituicao > 0 ? Pagamentos(substituicao, "0") : ""));
        fim.Conferir(Construir<RelatorioPagamentos>(banco), primeira, segunda);
    };
    const Lista cheia = {linha("22.70"), linha("23.30"), linha("23.90")};
    conferir(28, 0, {linha("22.70"), linha("23.30"), "23.90: Total 28,00"}, {});
    conferir(29, 0, cheia, {"5.90: Total 29,00"});
    conferir(30, 0, cheia, {linha("5.90"), "6.50: Total 30,00"});
    conferir(25, 1, titulos("22.70", "23.30") + Lista{linha("23.90")}, {"5.90: Total 1,00"});
    conferir(26, 1, {"22.70: Total 26,00"},
             titulos("5.90", "6.50") + Lista{linha("7.10"), "7.70: Total 1,00"});
    conferir(29, 1, cheia,
             Lista{"5.90: Total 29,00"} + titulos("6.50", "7.10") +
                 Lista{linha("7.70"), "8.30: Total 1,00"});
}

TEST(RelatorioPagamentos, ANullAmountEndsTheBuildAfterItsLineIsDrawn) {
    BancoDeTeste banco(std::string(DuasDeclaracoes) + R"sql(
        insert into tblPagamento (NroDRQ, OpPróprias, Data, Valor) values
        (1, -1, '2003-07-01', 10000), (1, -1, '2003-07-02', null), (1, -1, '2003-07-03', 1);)sql");
    RelatorioPagamentos relatorio;
    EXPECT_EQ(ErroDe([&] { relatorio.Construir(*banco, "1", 1); }).Numero(),
              NumeroErro::UsoInvalidoDeNull);
    EXPECT_THAT(LinhasDesde(7.0, relatorio.Documento(), 0),
                ElementsAre("7.10: 01/07/2003 1,00", "7.70: 02/07/2003 0,00"));
}

TEST(RelatorioPagamentos, AdicionarTotalOPDrawsATotalLineOnTheCurrentPage) {
    RelatorioPagamentos relatorio;
    relatorio.AdicionarTotalOP(1, 2, 1234.565);
    ConferirPagina(relatorio.Documento(), Total(1, 2, "1.234,57"));
    EXPECT_EQ(ErroDe([&] { relatorio.AdicionarTotalOP(0, 0, 1e300); }).Numero(),
              NumeroErro::Estouro);
}

}  // namespace
}  // namespace tarvo::apoio
