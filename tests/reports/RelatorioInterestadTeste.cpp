#include "reports/RelatorioEntInterestad.h"
#include "reports/RelatorioSaiInterestad.h"

#include "tests/reports/PaginaEsperada.h"

namespace tarvo::apoio {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

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

Lista Titulo(double x, double y, double largura, double altura, const std::string& texto) {
    return Celula({x, y, largura, altura}, TituloDeColuna, texto);
}

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

TEST(RelatorioSaiInterestad, PrintsTheSumsOfEachStateInPortugueseOrderOfTheirNames) {
    BancoDeTeste banco(std::string(DuasDeclaracoes) + Operacoes);
    RelatorioSaiInterestad relatorio;
    relatorio.Construir(*banco, "1", 1);
    const double w = 13.8 / 7;
    EXPECT_THAT(
        Curtas(relatorio.Documento(), 0),
        ElementsAreArray(
            CabecalhoEsperado("Informação das Operações e Prestações Interestaduais - ICMS",
                              false) +
            Celula({0, 5.4, 17, 0.7}, TituloDeQuadro,
                   "Saídas de Mercadorias, Bens e/ou Prestações de Serviços") +
            Titulo(0, 6.1, 3.2, 1.5, "Código e Unidade da\r\nFederação de Destino") +
            Titulo(3.2, 6.1, 2 * w, 0.75, "Valor Contábil") +
            Titulo(3.2, 6.85, w, 0.75, "Contribuinte") +
            Titulo(3.2 + w, 6.85, w, 0.75, "Não Contribuinte") +
            Titulo(3.2 + 2 * w, 6.1, 2 * w, 0.75, "Base de Cálculo") +
            Titulo(3.2 + 2 * w, 6.85, w, 0.75, "Contribuinte") +
            Titulo(3.2 + 3 * w, 6.85, w, 0.75, "Não Contribuinte") +
            Titulo(3.2 + 4 * w, 6.1, w, 1.5, "Imposto") +
            Titulo(3.2 + 5 * w, 6.1, w, 1.5, "Outras") +
            Titulo(3.2 + 6 * w, 6.1, w, 1.5, "ICMS Cobrado por\r\nSubstituição\r\nTributária") +
            Linha(7.6, 3.2, Estado, "RA. Pará", Lista(7, "0,00")) +
            Linha(8.2, 3.2, Estado, "PB. Paraíba",
                  {"0,10", "0,20", "0,30", "0,40", "0,50", "0,60", "0,70"}) +
            Linha(8.8, 3.2, Estado, "PR. Paraná",
                  {"2.234,56", "2.000,00", "3.000,01", "4.000,00", "5.000,49", "6.000,01",
                   "6.999,51"}) +
            Linha(9.4, 3.2, Total, "Total",
                  {"2.234,66", "2.000,20", "3.000,31", "4.000,40", "5.000,99", "6.000,61",
                   "7.000,21"}) +
            RodapeEsperado()));
}

// What stands between the identification block and the footer.
Lista Corpo(const Conteudo& c) {
    const auto pagina = Curtas(c, 0);
    return {std::find(pagina.begin(), pagina.end(), "Q 0 5.4 17 0.7") + 2, pagina.end() - 4};
}

TEST(RelatorioSaiInterestad, Before2002HasSixColumnsWithoutTheTax) {
    BancoDeTeste banco(std::string(DuasDeclaracoes) + Operacoes);
    RelatorioSaiInterestad relatorio;
    relatorio.Construir(*banco, "1", 2);
    const Lista valores = {"11,00", "12,00", "22,00", "23,00", "44,00", "55,00"};
    EXPECT_THAT(Corpo(relatorio.Documento()),
                ElementsAreArray(
                    Titulo(0, 6.1, 3.2, 1.5, "Código e Unidade da\r\nFederação de Destino") +
                    Titulo(3.2, 6.1, 4.6, 0.75, "Valor Contábil") +
                    Titulo(3.2, 6.85, 2.3, 0.75, "Contribuinte") +
                    Titulo(5.5, 6.85, 2.3, 0.75, "Não Contribuinte") +
                    Titulo(7.8, 6.1, 4.6, 0.75, "Base de Cálculo") +
                    Titulo(7.8, 6.85, 2.3, 0.75, "Contribuinte") +
                    Titulo(10.1, 6.85, 2.3, 0.75, "Não Contribuinte") +
                    Titulo(12.4, 6.1, 2.3, 1.5, "Outras") +
                    Titulo(14.7, 6.1, 2.3, 1.5, "ICMS Cobrado por\r\nSubstituição\r\nTributária") +
                    Linha(7.6, 3.2, Estado, "PB. Paraíba", valores) +
                    Linha(8.2, 3.2, Total, "Total", valores)));
}

TEST(RelatorioEntInterestad, PrintsItsOwnColumnsInBothLayouts) {
    BancoDeTeste banco(std::string(DuasDeclaracoes) + Operacoes);
    RelatorioEntInterestad relatorio;
    for (const bool comImposto : {true, false}) {
        relatorio.Construir(*banco, "1", comImposto ? 1 : 2);
        const double w = comImposto ? 2.25 : 2.7;
        const double outras = comImposto ? 10.25 : 8.9;
        const Lista valores = comImposto
                                  ? Lista{"11,00", "22,00", "33,00", "44,00", "55,00", "66,00"}
                                  : Lista{"11,00", "22,00", "44,00", "55,00", "66,00"};
        EXPECT_THAT(Textos(relatorio.Documento(), 0),
                    testing::Contains("Entradas de Mercadorias, Bens e/ou Aquisições de Serviços"));
        EXPECT_THAT(Corpo(relatorio.Documento()),
                    ElementsAreArray(
                        Titulo(0, 6.1, 3.5, 1.5, "Código e Unidade da\r\nFederação de Origem") +
                        Titulo(3.5, 6.1, w, 1.5, "Valor\r\nContábil") +
                        Titulo(3.5 + w, 6.1, w, 1.5, "Base de\r\nCálculo") +
                        (comImposto ? Titulo(8, 6.1, w, 1.5, "Imposto") : Lista()) +
                        Titulo(outras, 6.1, w, 1.5, "Outras") +
                        Titulo(outras + w, 6.1, 2 * w, 0.75,
                               "ICMS Cobrado por\r\nSubstituição Tributária") +
                        Titulo(outras + w, 6.85, w, 0.75, "Petróleo /\r\nEnergia") +
                        Titulo(outras + 2 * w, 6.85, w, 0.75, "Outros\r\nProdutos") +
                        Linha(7.6, 3.5, Estado, "PB. Paraíba", valores) +
                        Linha(8.2, 3.5, Total, "Total", valores)));
    }
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
        RelatorioEntInterestad relatorio;
        relatorio.Construir(*banco, "1", 1);
        fim.Conferir(relatorio.Documento(), primeira, segunda);
        if (!segunda.empty()) {
            EXPECT_THAT(LinhasDesde(5.4, relatorio.Documento(), 1),
                        testing::SizeIs(3 + segunda.size()));  // band and headings again
        }
    };
    conferir(28, {total("24.40", 28)}, {});
    conferir(29, {linha("24.40", 129)}, {total("7.60", 29)});
    conferir(30, {linha("24.40", 129)}, {linha("7.60", 130), total("8.20", 30)});
}

TEST(RelatorioInterestad, WithoutOperationsTheTotalsAreZero) {
    BancoDeTeste banco(DuasDeclaracoes);
    RelatorioEntInterestad relatorio;
    relatorio.Construir(*banco, "1", 1);
    EXPECT_THAT(LinhasDesde(7.6, relatorio.Documento(), 0),
                ElementsAre("7.60: Total 0,00 0,00 0,00 0,00 0,00 0,00"));
}

}  // namespace
}  // namespace tarvo::apoio
