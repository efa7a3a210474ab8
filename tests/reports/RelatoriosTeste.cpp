// SPDX-License-Identifier: MIT
#include <algorithm>

#include "data/Textos.h"
#include "dispatch/Catalogo.h"
#include "document/Imagens.h"
#include "reports/RelatorioApuracaoSubTrib.h"
#include "reports/RelatorioPagamentos.h"
#include "tests/support/OperacoesCurtas.h"
#include "tests/support/Roteiro.h"

namespace tarvo::apoio {
namespace {

// Taxpayer '1' with declaration 1, July 2003, and declaration 2, December 2001.
constexpr const char* DuasDeclaracoes = R"sql(
insert into tblContribuinte (IE, RazãoSocial, CNPJ) values ('1', 'Padaria São João', '00.1');
insert into tblDRQ (NroDRQ, Ref1, Ref2, Tipo, RegTrib, Consistente, Autenticação)
values (1, '2003-07-01', '2003-07-01', 1, '01', -1, 'A1B2'),
       (2, '2001-12-01', '2001-01-01', 2, '02', 0, null);
)sql";

class Relatorios : public testing::TestWithParam<const char*> {
  protected:
    // CODE [DECLARATION [PERIOD [TAXPAYER]]]: 1, none ("-") and '1' unless told.
    Roteiro::Respostas Construir(const std::string& pedido) {
        const auto [codigo, NumeroDRQ, periodo, IE] =
            Palavras<std::string, std::int32_t, std::string, std::string>(pedido);
        const ConfiguracaoFixa configuracao(periodo);
        const bool semPeriodo = periodo.empty() || periodo == "-";
        const auto relatorio = std::ranges::find(Catalogo(), codigo, &EntradaCatalogo::codigo)
                                   ->criar({.configuracoes = semPeriodo ? nullptr : &configuracao});
        try {
            relatorio->Construir(*roteiro_.Banco(), IE.empty() ? "1" : IE, std::max(NumeroDRQ, 1));
        } catch (const Erro&) {
            roteiro_.documento = relatorio->Documento();
            throw;
        }
        roteiro_.documento = relatorio->Documento();
        return {"páginas: " + std::to_string(roteiro_.documento.paginas.size())};
    }

    // Each label of a CFOP summary's table with its codes: the first, the last and how many.
    Roteiro::Respostas Grupos(const std::string& tabela) {
        Roteiro::Respostas grupos;
        std::string primeiro;
        int quantos = 0;
        for (const auto& linha : roteiro_.Banco().Linhas("select Linha, CFOP from " + tabela, 2)) {
            const auto barra = linha.find('|');
            if (const std::string rotulo = linha.substr(0, barra); rotulo != "(nulo)") {
                grupos.push_back(rotulo);
                quantos = 0;
                continue;
            }
            const std::string codigo = linha.substr(barra + 1);
            auto& grupo = grupos.back();
            if (quantos++ == 0) {
                primeiro = grupo += ": " + codigo;
            }
            grupo = primeiro + " a " + codigo + ", " + std::to_string(quantos);
        }
        return grupos;
    }

    Roteiro roteiro_{DuasDeclaracoes};
};

TEST_P(Relatorios, PrintWhatTheirRoteiroTells) {
    roteiro_.Ensinar("construir", [this](const std::string& pedido) { return Construir(pedido); });
    roteiro_.Ensinar("grupos", [this](const std::string& tabela) { return Grupos(tabela); });
    roteiro_.Conferir(std::string("reports/") + GetParam() + ".txt");
}

INSTANTIATE_TEST_SUITE_P(Roteiros, Relatorios,
                         testing::Values("RelatorioApuracaoOpProp", "RelatorioApuracaoSubTrib",
                                         "RelatorioCadastro", "RelatorioDetSubitens",
                                         "RelatorioInterestad", "RelatorioMIDAXB",
                                         "RelatorioNotasSaiZFMALC", "RelatorioPagamentos",
                                         "RelatorioRegExportacao", "RelatorioResumoCFOPs"),
                         [](const auto& roteiro) { return std::string(roteiro.param); });

TEST(RelatorioPagamentos, AdicionarTotalOPDrawsATotalLineOnTheCurrentPage) {
    RelatorioPagamentos relatorio;
    relatorio.AdicionarTotalOP(1, 2, 1234.565);
    EXPECT_THAT(Curtas(relatorio.Documento(), 0),
                testing::ElementsAre("Q 1 2 12 0.6", "T 1.2 2 11.6 0.6 EM Courier New 8b |Total",
                                     "Q 13 2 5 0.6", "T 13.2 2 4.6 0.6 DM Arial 8b |1.234,57"));
    EXPECT_EQ(NumeroDe([&] { relatorio.AdicionarTotalOP(0, 0, 1e300); }), NumeroErro::Estouro);
}

TEST(RelatorioApuracaoSubTrib, ItsFieldsCanBeReadWithoutBuilding) {
    BancoDeTeste banco(std::string(DuasDeclaracoes) +
                       R"sql(
        insert into tblDetalhesCFOPs (NroDRQ, CFOP, ImpostoRetidoST)
            values (1, '5.101', 3000050), (1, '1.101', 400000);
        insert into tblOcorrências (NroDRQ, CódSubItem, Código, Valor, OpPróprias) values
            (1, '002.18', 1, 150000, 0), (1, '003.01', 2, 10000, 0), (1, '007.01', 3, 20050, 0);)sql");
    const RelatorioApuracaoSubTrib relatorio;
    const auto campos = [&](BancoDados* scit_db, std::int32_t NroDRQ) {
        return std::vector<std::string>{
            relatorio.Campo051st(scit_db, NroDRQ), relatorio.Campo052st(scit_db, NroDRQ),
            relatorio.Campo053st(scit_db, NroDRQ), relatorio.Campo056st(scit_db, NroDRQ),
            relatorio.Campo057st(scit_db, NroDRQ), relatorio.Campo058st(scit_db, NroDRQ)};
    };
    EXPECT_THAT(campos(&*banco, 1),
                testing::ElementsAre("300,01", "15,00", "1,00", "40,00", "2,01", "0,00"));
    EXPECT_THAT(campos(&*banco, 77), testing::Each("0,00"));
    EXPECT_THAT(campos(nullptr, 1), testing::Each(""));
    EXPECT_TRUE(banco.Linhas("select * from tblApuraçãoSubstituiçãoTributária", 1).empty());
}

// One object builds any number of declarations, one after the other.
TEST(CadaRelatorio, StartsAnewForEveryDeclarationAndIsEmptyForOneThatIsMissing) {
    BancoDeTeste banco(DuasDeclaracoes);
    banco.Executar(
        "update tblDRQ set SaldoCredAntDig = 0, SaldoCredAntDigST = 0, ICMSFixPerRES = 0;");
    const ConfiguracaoFixa configuracoes("07/2003");
    for (const auto& entrada : Catalogo()) {
        SCOPED_TRACE(entrada.codigo);
        const auto relatorio = entrada.criar({.configuracoes = &configuracoes});
        const auto construir = [&](const char* IE, std::int32_t NumeroDRQ) {
            relatorio->Construir(*banco, IE, NumeroDRQ);
            return relatorio->Documento();
        };
        const Conteudo primeiro = construir("1", 1);
        const Conteudo c = construir("' or 'a'='a", 1);
        EXPECT_EQ(c.paginas, std::vector<Pagina>(1));
        EXPECT_FALSE(c.titulo.empty());
        EXPECT_LE(Caracteres(c.tituloResumido), 30U);
        EXPECT_EQ(c.icone, &frmFiguras::imgIconeR);
        if (entrada.codigo != "01") {
            EXPECT_THAT(Textos(construir("1", 2), 0),
                        testing::IsSupersetOf(
                            {"DRQ Não Consistida", "Substitutiva", "RES", "01 a 12/2001"}));
            if (entrada.codigo != "10" && entrada.codigo != "14") {
                EXPECT_EQ(construir("1", 9).paginas, std::vector<Pagina>(1));
            }
        }
        EXPECT_EQ(construir("1", 1), primeiro);
    }
}

}  // namespace
}  // namespace tarvo::apoio
