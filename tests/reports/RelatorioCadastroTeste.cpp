#include "reports/RelatorioCadastro.h"

#include "document/QuadroPagina.h"
#include "tests/apoio/Apoio.h"

namespace tarvo {
namespace {

using apoio::BancoDeTeste;
using apoio::Operacoes;
using apoio::Textos;
using testing::ElementsAre;

constexpr const char* Contribuintes = R"sql(
insert into tblContribuinte values ('1', 'Padaria São João', '00.000.000/0001-00', '2001-03-05',
    'Rua A', '10', 'fundos', 'Centro', 'Água Clara', '01000-000', 'VD', '11 5555-0000',
    '11 5555-0001', 'a@exemplo.com', 'www.exemplo.com', 'Íris', 'um' || char(13, 10) || 'dois');
insert into tblContribuinte (IE) values ('2');
)sql";

// The page without its header (8 operations) and footer (4): frame, label and value of each cell.
std::vector<std::string> Corpo(const Conteudo& conteudo) {
    auto operacoes = Operacoes(conteudo, 0);
    return {operacoes.begin() + 8, operacoes.end() - 4};
}

TEST(RelatorioCadastro, PrintsEveryFieldInItsCell) {
    BancoDeTeste banco(Contribuintes);
    RelatorioCadastro relatorio;
    relatorio.Construir(*banco, "1");
    const Conteudo& c = relatorio.Documento();
    EXPECT_EQ(c.titulo, "Relatório de Cadastro do Contribuinte");
    EXPECT_EQ(c.tituloResumido, "Cadastro do Contribuinte");
    EXPECT_EQ(c.margens, (Margens{2, 2, 2, 2}));
    EXPECT_THAT(
        Textos(c, 0),
        ElementsAre("DRQ", "Governo do Estado de Valdora", "Secretaria da Fazenda",
                    "Cadastro do Contribuinte", "Razão Social", "Padaria São João",
                    "Inscrição Estadual", "1", "CNPJ", "00.000.000/0001-00",
                    "Data do Cadastramento", "05/03/2001", "Local", "Rua A", "Número", "10",
                    "Complemento", "fundos", "Bairro", "Centro", "Município", "Água Clara", "CEP",
                    "01000-000", "UF", "VD", "Telefone", "11 5555-0000", "FAX", "11 5555-0001",
                    "e-mail", "a@exemplo.com", "Home Page", "www.exemplo.com", "Contato", "Íris",
                    "Observação", "um\r\ndois", "%%D", "%%H", "Página %%p de %%P"));
}

// Where the cells stand is told in quarters and sixteenths of 17 cm.
TEST(RelatorioCadastro, CellsFillTheWidthOfTheirRows) {
    BancoDeTeste banco(Contribuintes);
    RelatorioCadastro relatorio;
    relatorio.Construir(*banco, "1");
    std::vector<Caixa> molduras;
    for (const auto& primitiva : relatorio.Documento().paginas.at(0)) {
        if (const auto* moldura = std::get_if<RetanguloArredondado>(&primitiva)) {
            molduras.push_back(moldura->caixa);
        }
    }
    ASSERT_EQ(molduras.size(), 18U);
    EXPECT_EQ(molduras[0], (Caixa{0, 3.1, 17, 0.7}));
    std::size_t i = 1;
    double y = 4.2;
    for (const std::vector<double>& larguras :
         std::vector<std::vector<double>>{{17},
                                          {17 / 3.0, 17 / 3.0, 17 / 3.0},
                                          {8.5, 2.125, 6.375},
                                          {8.5, 8.5},
                                          {4.25, 1.0625, 5.3125, 6.375},
                                          {8.5, 8.5},
                                          {17},
                                          {17}}) {
        double x = 0;
        for (const double largura : larguras) {
            EXPECT_NEAR(molduras[i].x, x, 1e-9);
            EXPECT_NEAR(molduras[i].y, y, 1e-9);
            EXPECT_NEAR(molduras[i].largura, largura, 1e-9);
            x += largura;
            ++i;
        }
        EXPECT_NEAR(x, 17, 1e-9);
        y += 0.6;
    }
    EXPECT_DOUBLE_EQ(molduras.back().altura, 16.4);
    EXPECT_THAT(Corpo(relatorio.Documento()).back(),
                testing::StartsWith(R"(["EscreverTextoMultilinha",0.2,8.7)"));
}

TEST(RelatorioCadastro, NullFieldsPrintAsNothing) {
    BancoDeTeste banco(Contribuintes);
    RelatorioCadastro relatorio;
    relatorio.Construir(*banco, "2");
    const auto textos = Textos(relatorio.Documento(), 0);
    ASSERT_EQ(textos.size(), 41U);
    EXPECT_EQ(textos[7], "2");
    for (std::size_t i = 5; i < 38; i += 2) {
        EXPECT_TRUE(i == 7 || textos[i].empty()) << textos[i - 1] << ": " << textos[i];
    }
}

TEST(RelatorioCadastro, AnUnknownTaxpayerGivesOneEmptyPageAndRebuildingStartsAnew) {
    BancoDeTeste banco(Contribuintes);
    RelatorioCadastro relatorio;
    relatorio.Construir(*banco, "1");
    const Conteudo primeira = relatorio.Documento();
    relatorio.Construir(*banco, "' or '1'='1");
    EXPECT_EQ(relatorio.Documento().paginas, std::vector<Pagina>(1));
    relatorio.Construir(*banco, "1");
    EXPECT_EQ(relatorio.Documento(), primeira);
}

TEST(RelatorioCadastro, AMissingTableEndsTheBuildWithItsNumber) {
    BancoDeTeste banco("drop table tblContribuinte;");
    RelatorioCadastro relatorio;
    EXPECT_EQ(apoio::ErroDe([&] { relatorio.Construir(*banco, "1"); }).Numero(),
              NumeroErro::TabelaInexistente);
}

}  // namespace
}  // namespace tarvo
