// SPDX-License-Identifier: MIT
#include "data/Textos.h"
#include "reports/FaixasCFOP.h"
#include "reports/FormatosCFOP.h"
#include "reports/ReferenciaAtual.h"
#include "reports/RelatorioResumoCFOPsEnt.h"
#include "reports/RelatorioResumoCFOPsSai.h"
#include "tests/reports/PaginaEsperada.h"

namespace tarvo::apoio {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::SizeIs;

constexpr const char* Saidas = "tblResumoCFOPsSaídas";
constexpr const char* Entradas = "tblResumoCFOPsEntradas";

constexpr const char* Base = R"sql(
insert into tblContribuinte (IE) values ('1');
insert into tblDRQ (NroDRQ, Ref1, RegTrib) values
    (1, '2001-12-01', '01'), (2, '2002-01-01', '01'), (3, null, '01');
)sql";

// Detail lines of 1,00 and 2,00 in the first two columns.
std::string Detalhes(int NroDRQ, const Lista& codigos) {
    std::string sql;
    for (const auto& codigo : codigos) {
        sql += "insert into tblDetalhesCFOPs (NroDRQ, CFOP, ValorContábil, BaseCálculo) values (" +
               std::to_string(NroDRQ) + ", '" + codigo + "', 10000, 20000);\n";
    }
    return sql;
}

template <class R>
Conteudo ConstruirEm(BancoDeTeste& banco, std::int32_t NumeroDRQ, const std::string& refAtual) {
    const ConfiguracaoFixa configuracao(refAtual);
    return Construir<R>(banco, NumeroDRQ, {.configuracoes = &configuracao});
}

// Label or code of each row, details in brackets.
std::vector<std::string> Rotulos(BancoDeTeste& banco, const std::string& tabela) {
    std::vector<std::string> rotulos;
    for (const auto& linha : banco.Linhas("select Linha, CFOP from " + tabela, 2)) {
        const auto barra = linha.find('|');
        const bool detalhe = linha.substr(0, barra) == "(nulo)";
        rotulos.push_back(detalhe ? "[" + linha.substr(barra + 1) + "]" : linha.substr(0, barra));
    }
    return rotulos;
}

TEST(ResumoCFOPs, OldCodesStandUnderTheRangeInWhichTheirTextSorts) {
    BancoDeTeste banco(Base + Detalhes(1, {"5.99.1", "5.99.9", "5.99", "5.95", "5.96", "5.97.1",
                                           "5.94", "5.81", "6.19", "7.99.9", "7.99", "1.11"}));
    ConstruirEm<RelatorioResumoCFOPsSai>(banco, 1, "12/2002");
    EXPECT_THAT(
        Rotulos(banco, Saidas),
        ElementsAre(" NO ESTADO", " Sist.Integração      5.81", "[5.81]",
                    " Outras          5.91/5.94", "[5.94]", " Outras        5.96/5.99.9",
                    "[5.99.9]", "[5.99]", "[5.96]", "[5.97.1]", " Outras               5.95",
                    "[5.95]", " Outras             5.99.1", "[5.99.1]", " DE OUTROS ESTADOS",
                    " Vendas          6.11/6.19", "[6.19]", " DO EXTERIOR",
                    " Outras        7.99/7.99.9", "[7.99.9]", "[7.99]", " Total"));
}

TEST(ResumoCFOPs, GroupLabelsOfNewCodesAreFilledUpAndTitlesAreNot) {
    BancoDeTeste banco(Base + Detalhes(1, {"1.101", "1.149", "1.150", "1.351", "3.653", "3.654",
                                           "3.399", "2451", "2.451", "5.101"}));
    ConstruirEm<RelatorioResumoCFOPsEnt>(banco, 1, "01/2003");
    EXPECT_THAT(Rotulos(banco, Entradas),
                ElementsAre(" NO ESTADO", " Compras                  ", "[1.101]", "[1.149]",
                            " Aquis Serviços Transporte", "[1.351]", " DE OUTROS ESTADOS",
                            " DO EXTERIOR", " Comb Deriv/Não Petr e Lub", "[3.653]",
                            " Aquis Serviços Transporte", "[3.399]", " Total"));
    EXPECT_EQ(banco.Linhas("select ValorContábil, BaseCálculo, Imposto from " +
                               std::string(Entradas) + " where Linha = ' Total'",
                           3),
              std::vector<std::string>{"9,00|18,00|0,00"});
}

// The codes that stand under each group of a first digit, as first-last, in printed order.
std::string FaixasNaTabela(BancoDeTeste& banco, const std::string& tabela, char digito) {
    std::string faixas;
    std::string primeiro;
    std::string ultimo;
    int quantos = 0;
    const auto fechar = [&] {
        if (quantos > 0) {
            EXPECT_EQ(std::stoi(ultimo) - std::stoi(primeiro) + 1, quantos)
                << "a gap in " << faixas;
            faixas += (faixas.empty() ? "" : " ") + primeiro + "-" + ultimo;
        }
        quantos = 0;
    };
    for (const auto& rotulo : Rotulos(banco, tabela)) {
        if (!rotulo.starts_with('[')) {
            fechar();
        } else if (rotulo[1] == digito) {
            ultimo = rotulo.substr(3, 3);
            primeiro = quantos++ == 0 ? ultimo : primeiro;
        }
    }
    fechar();
    return faixas;
}

TEST(ResumoCFOPs, EveryGroupOfNewCodesHoldsAllOfItsCodesAndNoOthers) {
    BancoDeTeste banco(Base + Repetir(7000,
                                      "insert into tblDetalhesCFOPs (NroDRQ, CFOP) select 1, "
                                      "printf('%d.%03d', i / 1000 + 1, i % 1000) from n"));
    ConstruirEm<RelatorioResumoCFOPsEnt>(banco, 1, "01/2003");
    ConstruirEm<RelatorioResumoCFOPsSai>(banco, 1, "01/2003");
    EXPECT_EQ(FaixasNaTabela(banco, Entradas, '1'),
              "101-149 151-199 201-249 251-299 301-349 351-399 401-449 451-499 501-549 551-559 "
              "601-649 651-664 901-999");
    EXPECT_EQ(FaixasNaTabela(banco, Entradas, '2'),
              "101-149 151-199 201-249 251-299 301-349 351-399 401-449 501-549 551-559 601-649 "
              "651-664 901-999");
    EXPECT_EQ(FaixasNaTabela(banco, Entradas, '3'),
              "101-149 201-249 251-299 301-349 651-653 351-399 501-549 551-559 901-999");
    EXPECT_EQ(FaixasNaTabela(banco, Saidas, '5'),
              "101-149 151-199 201-249 251-299 301-349 351-399 401-449 451-499 501-549 551-559 "
              "601-649 651-667 901-999");
    EXPECT_EQ(FaixasNaTabela(banco, Saidas, '6'),
              "101-149 151-199 201-249 251-299 301-349 351-399 401-449 501-549 551-559 601-649 "
              "651-667 901-999");
    EXPECT_EQ(FaixasNaTabela(banco, Saidas, '7'),
              "101-149 201-249 251-299 301-349 351-399 501-549 551-559 651-667 901-999");
}

TEST(ResumoCFOPs, ACodeThatNoPatternFitsIsAnEmptyTextUnderItsGroup) {
    BancoDeTeste banco(Base + Detalhes(1, {"5.1012"}));
    ConstruirEm<RelatorioResumoCFOPsSai>(banco, 1, "01/2003");
    EXPECT_THAT(Rotulos(banco, Saidas), Contains("[]"));
}

TEST(ResumoCFOPs, EveryColumnOfADetailLineAndItsTotalStandsInItsPlace) {
    BancoDeTeste banco(std::string(Base) + R"sql(
insert into tblDetalhesCFOPs values
    (2, '5.101', 10050, 20050, 30050, 40050, 50050, 60050, 70050, 80050, 90050),
    (2, '9.999', 1, 1, 1, 1, 1, 1, 1, 1, 1),
    (2, '5.998', -50, null, 1, 1, 1, 1, 1, 1, 123456789012345678);
)sql");
    ConstruirEm<RelatorioResumoCFOPsSai>(banco, 2, "01/2003");
    EXPECT_THAT(
        banco.Linhas("select CFOP, ValorContábil, BaseCálculo, Imposto, IsentasNãoTrib, Outras, "
                     "ImpostoRetidoST, ImpRetSubstitutoST, ImpRetSubstituido, OutrosImpostos, "
                     "NroDRQ from " +
                         std::string(Saidas) + " where ValorContábil >= '-'",
                     11),
        ElementsAre("5.101|1,01|2,01|3,01|4,01|5,01|6,01|7,01|8,01|9,01|2",
                    "5.998|-0,01|0,00|0,00|0,00|0,00|0,00|0,00|0,00|12.345.678.901.234,57|2",
                    "(nulo)|1,00|2,01|3,01|4,01|5,01|6,01|7,01|8,01|12.345.678.901.243,57|2"));
}

TEST(ResumoCFOPs, CodesAreFormattedByTheirTable) {
    const std::pair<const char*, const char*> novos[] = {
        {"5.101", "5.101"}, {"5101", "5.101"}, {"55101", "55.101"},
        {"00511", "0.511"}, {"5.11", "0.511"}, {"", ""},
        {"511", ""},        {"5.101.1", ""},   {"5.1a", "5.1a"}};
    for (const auto& [codigo, formatado] : novos) {
        EXPECT_EQ(FormatarCFOPNovo(codigo), formatado) << codigo;
    }
    const std::pair<const char*, const char*> antigos[] = {
        {"5.11", "5.11"},   {"511", "5.11"}, {"5991", "5.99.1"},  {"5.99.1", "5.99.1"},
        {"59.91", "59.91"}, {"5.1", "0.51"}, {"5.9.1", "0.59.1"}, {"", ""},
        {"51", ""},         {"59911", ""},   {"5.9.9.1", ""},     {"5.1x", "5.1x"}};
    for (const auto& [codigo, formatado] : antigos) {
        EXPECT_EQ(FormatarCFOPAntigo(codigo), formatado) << codigo;
    }
}

// The label of a three-digit group fills its cell and ends with its bounds.
TEST(ResumoCFOPs, RangesAgreeWithTheirLabelsAndDoNotOverlap) {
    for (const auto& [faixas, antigas] : {std::pair{FaixasCFOP::EntradasAntigas, true},
                                          {FaixasCFOP::SaidasAntigas, true},
                                          {FaixasCFOP::EntradasNovas, false},
                                          {FaixasCFOP::SaidasNovas, false}}) {
        for (const FaixaCFOP& a : faixas) {
            SCOPED_TRACE(a.rotulo);
            EXPECT_LE(Caracteres(a.rotulo), 25U);
            if (antigas && !a.EhTitulo()) {
                const std::string fim(a.extra.empty() ? a.ate : a.extra);
                EXPECT_TRUE(a.rotulo.ends_with(a.de == fim ? fim : std::string(a.de) + "/" + fim));
                EXPECT_EQ(Caracteres(a.rotulo), 25U);
            }
            EXPECT_LE(a.de, a.ate);
            EXPECT_EQ(a.de.substr(0, 1), a.ate.substr(0, 1));
            EXPECT_EQ(std::ranges::count_if(faixas,
                                            [&](const FaixaCFOP& b) {
                                                return !b.EhTitulo() && a.de <= b.ate &&
                                                       b.de <= a.ate;
                                            }),
                      a.EhTitulo() ? 0 : 1);
        }
    }
}

TEST(ResumoCFOPs, TheCurrentPeriodChoosesTheCodesAndTheDeclarationsYearTheColumns) {
    BancoDeTeste banco(Base + Detalhes(1, {"5.11", "5.101"}) + Detalhes(2, {"5.11", "5.101"}) +
                       Detalhes(3, {"5.11", "5.101"}));
    struct Caso {
        std::int32_t NumeroDRQ;
        const char* refAtual;
        bool novos;
        std::size_t colunas;
    };
    for (const Caso& caso : {Caso{1, "12/2002", false, 7}, Caso{2, "12/02", false, 8},
                             Caso{3, "1/2003", true, 7}, Caso{2, "01/03", true, 8}}) {
        SCOPED_TRACE(caso.refAtual);
        const Conteudo c =
            ConstruirEm<RelatorioResumoCFOPsSai>(banco, caso.NumeroDRQ, caso.refAtual);
        EXPECT_THAT(Rotulos(banco, Saidas), Contains(caso.novos ? "[5.101]" : "[5.11]"));
        EXPECT_THAT(TextosEm(c, 0, 7.7), SizeIs(2 + caso.colunas));
    }
}

struct LinhaEsperada {
    const char* rotulo;
    const char* codigo;
    Lista valores;
};

// A page from the title frame to the footer, without the identification block; palavras are what
// the headings say of these operations, w is the width of a value column.
Lista PaginaDe(double w, const Lista& palavras, const std::vector<TituloEsperado>& proprios,
               const std::vector<LinhaEsperada>& linhas) {
    Lista pagina = Celula({0, 2.9, 25.7, 0.7}, TituloDeQuadro, palavras[0]) +
                   Titulos({{0, 5.9, 5.5, 1.8, "CÓDIGOS FISCAIS"},
                            {5.5, 5.9, w, 1.8, "Valores Contábeis"},
                            {5.5 + w, 5.9, 4 * w, 0.6, "ICMS - VALORES FISCAIS"},
                            {5.5 + w, 6.5, 2 * w, 0.6, palavras[1]},
                            {5.5 + 3 * w, 6.5, 2 * w, 0.6, palavras[2]},
                            {5.5 + w, 7.1, w, 0.6, "Base de Cálculo"},
                            {5.5 + 2 * w, 7.1, w, 0.6, palavras[3]},
                            {5.5 + 3 * w, 7.1, w, 0.6, palavras[4]},
                            {5.5 + 4 * w, 7.1, w, 0.6, "Outras"}}) +
                   Titulos(proprios);
    for (double y = 7.7; const auto& [rotulo, codigo, valores] : linhas) {
        pagina = pagina + Celula({0, y, 5.5, 0.6}, {"T EM Courier New 8b", 0.2}, rotulo) +
                 Celula({0, y, 5.5, 0.6}, {"T DM Arial 6", 0.1}, codigo);
        for (double x = 5.5; const auto& valor : valores) {
            pagina = pagina + Celula({x, y, w, 0.6}, {"T DM Arial 6", 0.1}, valor);
            x += w;
        }
        y += 0.6;
    }
    return pagina + Lista{"R 0 16.5 25.7 0.1 #808000 #808000",
                          "T 0 16.7 8.5667 0.3 EM Arial 6 |%%D",
                          "T 8.5667 16.7 8.5667 0.3 CM Arial 6 |%%H",
                          "T 17.1333 16.7 8.5667 0.3 DM Arial 6 |Página %%p de %%P"};
}

Lista SemIdentificacao(const Conteudo& c) {
    Lista operacoes = Curtas(c, 0);
    operacoes.erase(operacoes.begin() + 9, operacoes.begin() + 30);
    operacoes.erase(operacoes.begin(), operacoes.begin() + 7);
    return operacoes;
}

TEST(ResumoCFOPs, SalesSince2002HaveEightColumns) {
    BancoDeTeste banco(Base + std::string("insert into tblDetalhesCFOPs values"
                                          " (2, '5.101', 1, 2, 300, 4, 5, 6, 700, 800, 900);"));
    const Conteudo c = ConstruirEm<RelatorioResumoCFOPsSai>(banco, 2, "01/2003");
    EXPECT_EQ(c.titulo,
              "Relatório de Resumo dos CFOPs para as Operações / Prestações de Saída"
              " (Grupos 5, 6 e 7)");
    EXPECT_EQ(c.tituloResumido, "Resumo CFOPs Oper. Saída");
    EXPECT_EQ(c.orientacao, 1);
    const double w = 20.2 / 8;
    const double x = 25.7 - 3 * w;
    const Lista valores{"0,00", "0,00", "0,03", "0,00", "0,00", "0,07", "0,08", "0,09"};
    EXPECT_EQ(
        SemIdentificacao(c),
        PaginaDe(w,
                 {"Resumo por CFOPs - Saídas (Grupos 5, 6 e 7)", "Operações com Débito do Imposto",
                  "Operações sem Débito do Imposto", "Imposto Debitado", "Isentas / Não Tribut."},
                 {{x, 5.9, 2 * w, 1.2, "Imposto Retido por\r\nSubstituição Tributária"},
                  {x, 7.1, w, 0.6, "Substituto"},
                  {x + w, 7.1, w, 0.6, "Substituído"},
                  {x + 2 * w, 5.9, w, 1.8, "Outros Impostos"}},
                 {{" NO ESTADO", "", Lista(8)},
                  {" Vendas                   ", "", Lista(8)},
                  {"", "5.101", valores},
                  {" DE OUTROS ESTADOS", "", Lista(8)},
                  {" DO EXTERIOR", "", Lista(8)},
                  {" Total", "", valores}}));
}

TEST(ResumoCFOPs, PurchasesBefore2002HaveSevenColumns) {
    BancoDeTeste banco(Base);
    const Conteudo c = ConstruirEm<RelatorioResumoCFOPsEnt>(banco, 1, "12/2002");
    EXPECT_EQ(c.titulo,
              "Relatório de Resumo dos CFOPs para as Operações / Prestações de Entrada"
              " (Grupos 1, 2 e 3)");
    EXPECT_EQ(c.tituloResumido, "Resumo CFOPs Oper. Entrada");
    const double w = 20.2 / 7;
    EXPECT_EQ(
        SemIdentificacao(c),
        PaginaDe(
            w,
            {"Resumo por CFOPs - Entradas (Grupos 1, 2 e 3)", "Operações com Crédito do Imposto",
             "Operações sem Crédito do Imposto", "Imposto Creditado", "Isentas / Não Tributadas"},
            {{25.7 - 2 * w, 5.9, w, 1.8, "Imposto Retido por\r\nSubstituição Tributária"},
             {25.7 - w, 5.9, w, 1.8, "Outros Impostos"}},
            {{" NO ESTADO", "", Lista(7)},
             {" DE OUTROS ESTADOS", "", Lista(7)},
             {" DO EXTERIOR", "", Lista(7)},
             {" Total", "", Lista(7, "0,00")}}));
}

TEST(ResumoCFOPs, APeriodThatIsNoMonthEndsTheBuildBeforeAnythingIsChanged) {
    BancoDeTeste banco(Base);
    ConstruirEm<RelatorioResumoCFOPsSai>(banco, 1, "01/2003");
    const auto linhas = Rotulos(banco, Saidas);
    for (const char* refAtual : {"", "13/2002", "0/2003", "2003", "janeiro", "01/2003 10:00",
                                 "1/1/2003", "01-2003", "01/0099", "001/2003"}) {
        SCOPED_TRACE(refAtual);
        const Erro erro = ErroDe([&] { ConstruirEm<RelatorioResumoCFOPsSai>(banco, 2, refAtual); });
        EXPECT_EQ(erro.Numero(), NumeroErro::TipoIncompativel);
    }
    EXPECT_EQ(ErroDe([&] { Construir<RelatorioResumoCFOPsSai>(banco, 2); }).Numero(),
              NumeroErro::TipoIncompativel);
    EXPECT_EQ(Rotulos(banco, Saidas), linhas);
    EXPECT_TRUE(DataDeReferencia("12/30") < DataDeReferencia("01/29"));
}

TEST(ResumoCFOPs, FourteenRowsFillAPageAndTheNextOneOpensAnother) {
    BancoDeTeste banco(Base + Detalhes(2, Lista(9, "5.101")));
    Conteudo c = ConstruirEm<RelatorioResumoCFOPsSai>(banco, 2, "01/2003");
    ASSERT_THAT(c.paginas, SizeIs(1));
    EXPECT_EQ(TextosEm(c, 0, 15.5).at(0), " Total");

    banco.Executar(Detalhes(2, {"5.101"}));
    c = ConstruirEm<RelatorioResumoCFOPsSai>(banco, 2, "01/2003");
    ASSERT_THAT(c.paginas, SizeIs(2));
    EXPECT_EQ(TextosEm(c, 0, 15.5).at(0), " DO EXTERIOR");
    EXPECT_EQ(TextosEm(c, 1, 7.7).at(2), "10,00");
    EXPECT_THAT(TextosEm(c, 1, 5.95), Contains("CÓDIGOS FISCAIS"));
    EXPECT_THAT(TextosEm(c, 1, 16.7), SizeIs(3));
}

}  // namespace
}  // namespace tarvo::apoio
