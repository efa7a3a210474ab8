#include <algorithm>
#include <numeric>

#include "reports/FaixasCFOP.h"
#include "reports/FormatosCFOP.h"
#include "reports/ReferenciaAtual.h"
#include "reports/RelatorioResumoCFOPsEnt.h"
#include "reports/RelatorioResumoCFOPsSai.h"
#include "tests/reports/PaginaEsperada.h"

namespace tarvo::apoio {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

constexpr const char* Saidas = "tblResumoCFOPsSaídas";
constexpr const char* Entradas = "tblResumoCFOPsEntradas";

constexpr const char* Base = R"sql(
insert into tblContribuinte (IE) values ('1');
insert into tblDRQ (NroDRQ, Ref1, RegTrib) values
    (1, '2001-12-01', '01'), (2, '2002-01-01', '01'), (3, null, '01');
)sql";

// A detail line of an amount (ten-thousandths) in the first two columns.
std::string Detalhe(int NroDRQ, const std::string& CFOP, int valor) {
    return "insert into tblDetalhesCFOPs (NroDRQ, CFOP, ValorContábil, BaseCálculo) values (" +
           std::to_string(NroDRQ) + ", '" + CFOP + "', " + std::to_string(valor) + ", " +
           std::to_string(2 * valor) + ");\n";
}

std::string Detalhes(int NroDRQ, std::initializer_list<const char*> codigos) {
    std::string sql;
    for (const char* codigo : codigos) {
        sql += Detalhe(NroDRQ, codigo, 10000);
    }
    return sql;
}

template <class R>
Conteudo Construir(BancoDados& banco, std::int32_t NumeroDRQ, const std::string& refAtual) {
    const ConfiguracaoFixa configuracao(refAtual);
    R relatorio({.configuracoes = &configuracao});
    relatorio.Construir(banco, "1", NumeroDRQ);
    return relatorio.Documento();
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
    Construir<RelatorioResumoCFOPsSai>(*banco, 1, "12/2002");
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
    Construir<RelatorioResumoCFOPsEnt>(*banco, 1, "01/2003");
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

TEST(ResumoCFOPs, EveryColumnOfADetailLineAndItsTotalStandsInItsPlace) {
    BancoDeTeste banco(std::string(Base) + R"sql(
insert into tblDetalhesCFOPs values
    (2, '5.101', 10050, 20050, 30050, 40050, 50050, 60050, 70050, 80050, 90050),
    (2, '9.999', 1, 1, 1, 1, 1, 1, 1, 1, 1),
    (2, '5.998', -50, null, 1, 1, 1, 1, 1, 1, 123456789012345678);
)sql");
    Construir<RelatorioResumoCFOPsSai>(*banco, 2, "01/2003");
    EXPECT_THAT(
        banco.Linhas("select CFOP, ValorContábil, BaseCálculo, Imposto, IsentasNãoTrib, Outras, "
                     "ImpostoRetidoST, ImpRetSubstitutoST, ImpRetSubstituido, OutrosImpostos, "
                     "NroDRQ from " +
                         std::string(Saidas) + " where ValorContábil <> ''",
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

std::ptrdiff_t Caracteres(std::string_view utf8) {
    return std::count_if(utf8.begin(), utf8.end(), [](char c) { return (c & 0xC0) != 0x80; });
}

// The label of a three-digit group fills its cell and ends with its bounds.
TEST(ResumoCFOPs, RangesAgreeWithTheirLabelsAndDoNotOverlap) {
    for (const auto& faixas : {FaixasCFOP::EntradasAntigas, FaixasCFOP::SaidasAntigas}) {
        for (const FaixaCFOP& f : faixas) {
            const std::string fim(f.extra.empty() ? f.ate : f.extra);
            const std::string codigos = f.de == fim ? fim : std::string(f.de) + "/" + fim;
            EXPECT_TRUE(f.EhTitulo() || f.rotulo.ends_with(codigos)) << f.rotulo;
            EXPECT_TRUE(f.EhTitulo() || Caracteres(f.rotulo) == 25) << f.rotulo;
        }
    }
    for (const auto& faixas : {FaixasCFOP::EntradasAntigas, FaixasCFOP::SaidasAntigas,
                               FaixasCFOP::EntradasNovas, FaixasCFOP::SaidasNovas}) {
        for (const FaixaCFOP& a : faixas) {
            EXPECT_LE(a.de, a.ate) << a.rotulo;
            EXPECT_EQ(a.de.substr(0, 1), a.ate.substr(0, 1)) << a.rotulo;
            for (const FaixaCFOP& b : faixas) {
                EXPECT_TRUE(&a == &b || a.EhTitulo() || b.EhTitulo() || a.ate < b.de ||
                            b.ate < a.de)
                    << a.rotulo << " / " << b.rotulo;
            }
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
            Construir<RelatorioResumoCFOPsSai>(*banco, caso.NumeroDRQ, caso.refAtual);
        EXPECT_THAT(Rotulos(banco, Saidas), Contains(caso.novos ? "[5.101]" : "[5.11]"));
        EXPECT_THAT(TextosEm(c, 0, 7.7), SizeIs(2 + caso.colunas));
    }
}

// A page whose value columns are W cm wide.
struct PaginaDeResumo {
    double W;

    [[nodiscard]] Lista Titulo(const std::string& texto, int coluna, double y, int colunas,
                               double altura) const {
        return Celula({5.5 + coluna * W, y, colunas * W, altura}, TituloDeColuna, texto);
    }
    // The title frame and the headings that all pages have.
    [[nodiscard]] Lista Titulos(const std::string& titulo, const std::string& comImposto,
                                const std::string& semImposto, const std::string& imposto,
                                const std::string& isentas) const {
        return Celula({0, 2.9, 25.7, 0.7}, TituloDeQuadro, titulo) +
               Celula({0, 5.9, 5.5, 1.8}, TituloDeColuna, "CÓDIGOS FISCAIS") +
               Titulo("Valores Contábeis", 0, 5.9, 1, 1.8) +
               Titulo("ICMS - VALORES FISCAIS", 1, 5.9, 4, 0.6) +
               Titulo(comImposto, 1, 6.5, 2, 0.6) + Titulo(semImposto, 3, 6.5, 2, 0.6) +
               Titulo("Base de Cálculo", 1, 7.1, 1, 0.6) + Titulo(imposto, 2, 7.1, 1, 0.6) +
               Titulo(isentas, 3, 7.1, 1, 0.6) + Titulo("Outras", 4, 7.1, 1, 0.6);
    }
    [[nodiscard]] Lista Linha(double y, const std::string& rotulo, const std::string& codigo,
                              const Lista& valores) const {
        Lista linha = Celula({0, y, 5.5, 0.6}, {"T EM Courier New 8b", 0.2}, rotulo) +
                      Celula({0, y, 5.5, 0.6}, {"T DM Arial 6", 0.1}, codigo);
        for (double x = 5.5; const auto& valor : valores) {
            linha = linha + Celula({x, y, W, 0.6}, {"T DM Arial 6", 0.1}, valor);
            x += W;
        }
        return linha;
    }
    [[nodiscard]] static Lista Rodape() {
        return {"R 0 16.5 25.7 0.1 #808000 #808000", "T 0 16.7 8.5667 0.3 EM Arial 6 |%%D",
                "T 8.5667 16.7 8.5667 0.3 CM Arial 6 |%%H",
                "T 17.1333 16.7 8.5667 0.3 DM Arial 6 |Página %%p de %%P"};
    }
};

// The first page from the title frame on, without the identification block.
Lista SemIdentificacao(const Conteudo& c) {
    Lista operacoes = Curtas(c, 0);
    operacoes.erase(operacoes.begin() + 9, operacoes.begin() + 30);
    operacoes.erase(operacoes.begin(), operacoes.begin() + 7);
    return operacoes;
}

TEST(ResumoCFOPs, SalesSince2002HaveEightColumns) {
    BancoDeTeste banco(Base + std::string("insert into tblDetalhesCFOPs values"
                                          " (2, '5.101', 1, 2, 300, 4, 5, 6, 700, 800, 900);"));
    const Conteudo c = Construir<RelatorioResumoCFOPsSai>(*banco, 2, "01/2003");
    EXPECT_EQ(c.titulo,
              "Relatório de Resumo dos CFOPs para as Operações / Prestações de Saída"
              " (Grupos 5, 6 e 7)");
    EXPECT_EQ(c.tituloResumido, "Resumo CFOPs Oper. Saída");
    EXPECT_EQ(c.orientacao, 1);
    const PaginaDeResumo p{20.2 / 8};
    const Lista valores{"0,00", "0,00", "0,03", "0,00", "0,00", "0,07", "0,08", "0,09"};
    EXPECT_EQ(
        SemIdentificacao(c),
        p.Titulos("Resumo por CFOPs - Saídas (Grupos 5, 6 e 7)", "Operações com Débito do Imposto",
                  "Operações sem Débito do Imposto", "Imposto Debitado", "Isentas / Não Tribut.") +
            p.Titulo("Imposto Retido por\r\nSubstituição Tributária", 5, 5.9, 2, 1.2) +
            p.Titulo("Substituto", 5, 7.1, 1, 0.6) + p.Titulo("Substituído", 6, 7.1, 1, 0.6) +
            p.Titulo("Outros Impostos", 7, 5.9, 1, 1.8) + p.Linha(7.7, " NO ESTADO", "", Lista(8)) +
            p.Linha(8.3, " Vendas                   ", "", Lista(8)) +
            p.Linha(8.9, "", "5.101", valores) + p.Linha(9.5, " DE OUTROS ESTADOS", "", Lista(8)) +
            p.Linha(10.1, " DO EXTERIOR", "", Lista(8)) + p.Linha(10.7, " Total", "", valores) +
            p.Rodape());
}

TEST(ResumoCFOPs, PurchasesBefore2002HaveSevenColumns) {
    BancoDeTeste banco(Base);
    Construir<RelatorioResumoCFOPsEnt>(*banco, 2, "12/2002");
    const Conteudo c = Construir<RelatorioResumoCFOPsEnt>(*banco, 1, "12/2002");
    EXPECT_EQ(c.titulo,
              "Relatório de Resumo dos CFOPs para as Operações / Prestações de Entrada"
              " (Grupos 1, 2 e 3)");
    EXPECT_EQ(c.tituloResumido, "Resumo CFOPs Oper. Entrada");
    const PaginaDeResumo p{20.2 / 7};
    EXPECT_EQ(SemIdentificacao(c),
              p.Titulos("Resumo por CFOPs - Entradas (Grupos 1, 2 e 3)",
                        "Operações com Crédito do Imposto", "Operações sem Crédito do Imposto",
                        "Imposto Creditado", "Isentas / Não Tributadas") +
                  p.Titulo("Imposto Retido por\r\nSubstituição Tributária", 5, 5.9, 1, 1.8) +
                  p.Titulo("Outros Impostos", 6, 5.9, 1, 1.8) +
                  p.Linha(7.7, " NO ESTADO", "", Lista(7)) +
                  p.Linha(8.3, " DE OUTROS ESTADOS", "", Lista(7)) +
                  p.Linha(8.9, " DO EXTERIOR", "", Lista(7)) +
                  p.Linha(9.5, " Total", "", Lista(7, "0,00")) + p.Rodape());
    EXPECT_THAT(banco.Linhas("select NroDRQ from " + std::string(Entradas), 1), Each("1"));
    EXPECT_EQ(Construir<RelatorioResumoCFOPsEnt>(*banco, 9, "12/2002").paginas,
              std::vector<Pagina>(1));
    EXPECT_THAT(Rotulos(banco, Entradas), SizeIs(4));
}

TEST(ResumoCFOPs, APeriodThatIsNoMonthEndsTheBuildBeforeAnythingIsChanged) {
    BancoDeTeste banco(Base);
    Construir<RelatorioResumoCFOPsSai>(*banco, 1, "01/2003");
    const auto linhas = Rotulos(banco, Saidas);
    for (const char* refAtual : {"", "13/2002", "0/2003", "2003", "janeiro", "01/2003 10:00",
                                 "1/1/2003", "01-2003", "01/0099", "001/2003"}) {
        SCOPED_TRACE(refAtual);
        const Erro erro = ErroDe([&] { Construir<RelatorioResumoCFOPsSai>(*banco, 2, refAtual); });
        EXPECT_EQ(erro.Numero(), NumeroErro::TipoIncompativel);
    }
    RelatorioResumoCFOPsSai semAjustes;
    EXPECT_EQ(ErroDe([&] { semAjustes.Construir(*banco, "1", 2); }).Numero(),
              NumeroErro::TipoIncompativel);
    EXPECT_EQ(Rotulos(banco, Saidas), linhas);
    EXPECT_TRUE(DataDeReferencia("12/30") < DataDeReferencia("01/29"));
}

TEST(ResumoCFOPs, FourteenRowsFillAPageAndTheNextOneOpensAnother) {
    const Lista nove(9, Detalhe(2, "5.101", 10000));
    BancoDeTeste banco(std::accumulate(nove.begin(), nove.end(), std::string(Base)));
    Conteudo c = Construir<RelatorioResumoCFOPsSai>(*banco, 2, "01/2003");
    ASSERT_THAT(c.paginas, SizeIs(1));
    EXPECT_EQ(TextosEm(c, 0, 15.5).at(0), " Total");

    banco.Executar(Detalhe(2, "5.101", 10000));
    c = Construir<RelatorioResumoCFOPsSai>(*banco, 2, "01/2003");
    ASSERT_THAT(c.paginas, SizeIs(2));
    EXPECT_EQ(TextosEm(c, 0, 15.5).at(0), " DO EXTERIOR");
    EXPECT_EQ(TextosEm(c, 1, 7.7).at(2), "10,00");
    EXPECT_THAT(TextosEm(c, 1, 5.95), Contains("CÓDIGOS FISCAIS"));
    EXPECT_THAT(TextosEm(c, 1, 16.7), SizeIs(3));
}

}  // namespace
}  // namespace tarvo::apoio
