// SPDX-License-Identifier: MIT
#include "reports/RelatorioEntInterestad.h"
#include "reports/RelatorioSaiInterestad.h"

#include "tests/reports/PaginaEsperada.h"

namespace tarvo::apoio {
namespace {

// Three states in each direction; what must not be counted stands last.
constexpr const char* Operacoes = R"sql(
insert into tblEstados (Código, UF, Estado) values
    ('1', 'PR', 'Paraná'), ('2', 'PB', 'Paraíba'), ('3', 'RA', 'Pará');
insert into tblDetalhesInterUFs (NroDRQ, CFOP, UF, ValorContábil_1, ValorContábil_2, BaseCálculo_1,
    BaseCálculo_2, Imposto, Outras, PetróleoEnergia, OutrosProdutos, ICMSCobradoST) values
    (1, '6101', '1', 10000000, 20000000, 30000000, 40000000, 50000000, 60000000, 1, 1, 70000000),
    (1, '6102', '1', 12345600, null, 100, null, 4900, 50, null, null, -4949),
    (1, '6.11', '2', 1000, 2000, 3000, 4000, 5000, 6000, 1, 1, 7000),
    (1, '6101', '3', null, null, null, null, null, null, null, null, null),
    (1, '2101', '2', 110000, 1, 220000, 1, 330000, 440000, 550000, 660000, 1),
    (2, '2101', '2', 110000, 1, 220000, 1, 330000, 440000, 550000, 660000, 1),
    (2, '6101', '2', 110000, 120000, 220000, 230000, 330000, 440000, 1, 1, 550000),
    (1, '6101', '9', 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000),
    (1, '5101', '1', 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000),
    (3, '6101', '1', 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000);
)sql";

// A row whose value columns divide what its first column leaves of 17 cm.
Lista Linha(double y, double primeira, const EstiloEsperado& estilo, const std::string& rotulo,
            const Lista& valores) {
    Lista linha = Celula({0, y, primeira, 0.6}, estilo, rotulo);
    const double w = (17 - primeira) / static_cast<double>(valores.size());
    for (std::size_t k = 0; k < valores.size(); ++k) {
        linha = linha + Celula({primeira + static_cast<double>(k) * w, y, w, 0.6},
                               {"T DM Arial 6", 0.1}, valores[k]);
    }
    return linha;
}

const EstiloEsperado Estado{"T EM Arial 6", 0.1};
const EstiloEsperado Total{"T EM Arial 8b", 0.1};

Lista PaginaDe(const std::string& faixa, const Lista& titulosELinhas) {
    return CabecalhoEsperado("Informação das Operações e Prestações Interestaduais - ICMS", false) +
           Celula({0, 5.4, 17, 0.7}, TituloDeQuadro, faixa) + titulosELinhas + RodapeEsperado();
}

// Before 2002 there is no column of the tax, and the others, w cm wide, fill the page.
Lista PaginaDeSaidas(bool comImposto, const Lista& linhas) {
    const double w = 13.8 / (comImposto ? 7 : 6);
    return PaginaDe(
        "Saídas de Mercadorias, Bens e/ou Prestações de Serviços",
        Titulos({{0, 6.1, 3.2, 1.5, "Código e Unidade da\r\nFederação de Destino"},
                 {3.2, 6.1, 2 * w, 0.75, "Valor Contábil"},
                 {3.2, 6.85, w, 0.75, "Contribuinte"},
                 {3.2 + w, 6.85, w, 0.75, "Não Contribuinte"},
                 {3.2 + 2 * w, 6.1, 2 * w, 0.75, "Base de Cálculo"},
                 {3.2 + 2 * w, 6.85, w, 0.75, "Contribuinte"},
                 {3.2 + 3 * w, 6.85, w, 0.75, "Não Contribuinte"}}) +
            (comImposto ? Titulos({{3.2 + 4 * w, 6.1, w, 1.5, "Imposto"}}) : Lista()) +
            Titulos({{17 - 2 * w, 6.1, w, 1.5, "Outras"},
                     {17 - w, 6.1, w, 1.5, "ICMS Cobrado por\r\nSubstituição\r\nTributária"}}) +
            linhas);
}

Lista PaginaDeEntradas(bool comImposto, const Lista& linhas) {
    const double w = 13.5 / (comImposto ? 6 : 5);
    return PaginaDe(
        "Entradas de Mercadorias, Bens e/ou Aquisições de Serviços",
        Titulos({{0, 6.1, 3.5, 1.5, "Código e Unidade da\r\nFederação de Origem"},
                 {3.5, 6.1, w, 1.5, "Valor\r\nContábil"},
                 {3.5 + w, 6.1, w, 1.5, "Base de\r\nCálculo"}}) +
            (comImposto ? Titulos({{8, 6.1, w, 1.5, "Imposto"}}) : Lista()) +
            Titulos({{17 - 3 * w, 6.1, w, 1.5, "Outras"},
                     {17 - 2 * w, 6.1, 2 * w, 0.75, "ICMS Cobrado por\r\nSubstituição Tributária"},
                     {17 - 2 * w, 6.85, w, 0.75, "Petróleo /\r\nEnergia"},
                     {17 - w, 6.85, w, 0.75, "Outros\r\nProdutos"}}) +
            linhas);
}

TEST(RelatorioSaiInterestad, PrintsTheSumsOfEachStateInPortugueseOrderOfTheirNames) {
    BancoDeTeste banco(std::string(DuasDeclaracoes) + Operacoes);
    ConferirPagina(
        Construir<RelatorioSaiInterestad>(banco),
        PaginaDeSaidas(true, Linha(7.6, 3.2, Estado, "RA. Pará", Lista(7, "0,00")) +
                                 Linha(8.2, 3.2, Estado, "PB. Paraíba",
                                       {"0,10", "0,20", "0,30", "0,40", "0,50", "0,60", "0,70"}) +
                                 Linha(8.8, 3.2, Estado, "PR. Paraná",
                                       {"2.234,56", "2.000,00", "3.000,01", "4.000,00", "5.000,49",
                                        "6.000,01", "6.999,51"}) +
                                 Linha(9.4, 3.2, Total, "Total",
                                       {"2.234,66", "2.000,20", "3.000,31", "4.000,40", "5.000,99",
                                        "6.000,61", "7.000,21"})));
}

TEST(RelatorioInterestad, TheTaxHasAColumnFrom2002On) {
    BancoDeTeste banco(std::string(DuasDeclaracoes) + Operacoes +
                       "update tblDRQ set Ref1 = '2002-01-01' where NroDRQ = 1;");
    const auto linhas = [](double primeira, const Lista& valores) {
        return Linha(7.6, primeira, Estado, "PB. Paraíba", valores) +
               Linha(8.2, primeira, Total, "Total", valores);
    };
    const auto corpo = [](const Lista& pagina) {
        return Lista(std::find(pagina.begin(), pagina.end(), "Q 0 5.4 17 0.7"), pagina.end());
    };
    const auto conferir = [&](const Conteudo& c, const Lista& pagina) {
        EXPECT_THAT(corpo(Curtas(c, 0)), testing::ElementsAreArray(corpo(pagina)));
    };
    conferir(
        Construir<RelatorioSaiInterestad>(banco, 2),
        PaginaDeSaidas(false, linhas(3.2, {"11,00", "12,00", "22,00", "23,00", "44,00", "55,00"})));
    conferir(Construir<RelatorioEntInterestad>(banco, 1),
             PaginaDeEntradas(true,
                              linhas(3.5, {"11,00", "22,00", "33,00", "44,00", "55,00", "66,00"})));
    conferir(Construir<RelatorioEntInterestad>(banco, 2),
             PaginaDeEntradas(false, linhas(3.5, {"11,00", "22,00", "44,00", "55,00", "66,00"})));
}

TEST(RelatorioInterestad, APageHolds29RowsAndTheTotalMovesOnWhenItIsFull) {
    const FimDePagina fim{24.3, 7.6};
    const auto linha = [](const std::string& y, int n) {
        return y + ": UF. E" + std::to_string(n) + " 0,00 0,00 1,00 0,00 0,00 0,00";
    };
    const auto total = [](const std::string& y, int n) {
        return y + ": Total 0,00 0,00 " + std::to_string(n) + ",00 0,00 0,00 0,00";
    };
    const auto conferir = [&](int estados, const Lista& primeira, const Lista& segunda) {
        BancoDeTeste banco(
            DuasDeclaracoes +
            Repetir(estados,
                    "insert into tblEstados (Código, UF, Estado) select i, 'UF', 'E' || (100 + i) "
                    "from n") +
            Repetir(estados,
                    "insert into tblDetalhesInterUFs (NroDRQ, CFOP, UF, Imposto) select 1, "
                    "'2101', i, 10000 from n"));
        const Conteudo c = Construir<RelatorioEntInterestad>(banco);
        fim.Conferir(c, primeira, segunda);
        if (!segunda.empty()) {
            EXPECT_THAT(LinhasDesde(5.4, c, 1),
                        testing::SizeIs(3 + segunda.size()));  // band and headings again
        }
    };
    conferir(28, {total("24.40", 28)}, {});
    conferir(29, {linha("24.40", 129)}, {total("7.60", 29)});
    conferir(30, {linha("24.40", 129)}, {linha("7.60", 130), total("8.20", 30)});
}

TEST(RelatorioInterestad, WithoutOperationsTheTotalsAreZero) {
    BancoDeTeste banco(DuasDeclaracoes);
    EXPECT_EQ(LinhasDesde(7.6, Construir<RelatorioEntInterestad>(banco), 0),
              Lista{"7.60: Total 0,00 0,00 0,00 0,00 0,00 0,00"});
}

}  // namespace
}  // namespace tarvo::apoio
