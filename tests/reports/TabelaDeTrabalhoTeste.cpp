// SPDX-License-Identifier: MIT
#include "reports/TabelaDeTrabalho.h"

#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

#include "output/json/DocumentoJSON.h"
#include "reports/RelatorioApuracaoOpProp.h"
#include "reports/RelatorioApuracaoSubTrib.h"
#include "reports/RelatorioResumoCFOPsEnt.h"
#include "reports/RelatorioResumoCFOPsSai.h"
#include "tests/support/Apoio.h"

namespace tarvo {
namespace {

using apoio::BancoDeTeste;

// Declarations 1 to 20, each with amounts of its own in every table that the reports read.
constexpr const char* VinteDeclaracoes = R"sql(
insert into tblContribuinte (IE) values ('1');
with recursive n(i) as (select 1 union all select i + 1 from n where i < 20)
insert into tblDRQ (NroDRQ, Ref1, RegTrib, SaldoCredAntDig, SaldoCredAntDigST)
    select i, '2003-07-01', '01', i * 10000, i * 20000 from n;
with recursive k(j) as (select 0 union all select j + 1 from k where j < 48)
insert into tblDetalhesCFOPs (NroDRQ, CFOP, ValorContábil, Imposto, ImpostoRetidoST)
    select NroDRQ, (1 + j % 7) || '.1' || (j + 10), NroDRQ * j * 1111, NroDRQ * j * 333, NroDRQ * j
    from tblDRQ, k;
insert into tblOcorrências (NroDRQ, CódSubItem, Código, Valor, OpPróprias)
    select NroDRQ, '002.' || (NroDRQ + 10), NroDRQ, NroDRQ * 70000, -1 from tblDRQ;
)sql";

// The four reports of a declaration that print work tables, as text.
std::string Paginas(BancoDados& banco, std::int32_t NumeroDRQ) {
    const apoio::ConfiguracaoFixa configuracao("01/2003");
    const Ambiente ambiente{.configuracoes = &configuracao};
    std::ostringstream texto;
    const auto construir = [&](auto&& relatorio) {
        relatorio.Construir(banco, "1", NumeroDRQ);
        EscreverJSON(relatorio.Identidade().classe, relatorio.Documento(), texto);
    };
    construir(RelatorioApuracaoOpProp(ambiente));
    construir(RelatorioApuracaoSubTrib(ambiente));
    construir(RelatorioResumoCFOPsEnt(ambiente));
    construir(RelatorioResumoCFOPsSai(ambiente));
    return texto.str();
}

TEST(TabelaDeTrabalho, RefillsForOneDeclarationAndReadsBackInOrder) {
    BancoDeTeste banco;
    const char* nome = "tblApuraçãoOperaçõesPróprias";
    TabelaDeTrabalho(*banco, nome, 1).Acrescentar({{"Linha", "velha"}});
    TabelaDeTrabalho tabela(*banco, nome, 2);
    for (const char* linha : {"z", "a", "m"}) {
        tabela.Acrescentar({{"Linha", linha}, {"Total", std::nullopt}, {"Valor", ""}});
    }
    EXPECT_THAT(banco.Linhas("select NroDRQ, Linha, Total, Valor from " + std::string(nome), 4),
                testing::ElementsAre("2|z|(nulo)|", "2|a|(nulo)|", "2|m|(nulo)|"));
}

TEST(TabelaDeTrabalho, PrivateTablesGiveTheSamePagesAndLeaveTheFileAlone) {
    BancoDeTeste banco(VinteDeclaracoes);
    const std::string compartilhadas = Paginas(*banco, 7);
    const std::string antes = apoio::BytesDe(banco.Arquivo());
    const auto privado = BancoSQLite::Abrir(
        banco.Arquivo(),
        {.modo = ModoAbertura::SomenteLeitura, .tabelasDeTrabalho = TabelasDeTrabalho::Privadas});
    EXPECT_NE(Paginas(*privado, 8), compartilhadas);
    EXPECT_EQ(Paginas(*privado, 7), compartilhadas);
    EXPECT_EQ(apoio::BytesDe(banco.Arquivo()), antes);
}

class BuildsAtOnce : public testing::TestWithParam<TabelasDeTrabalho> {};

TEST_P(BuildsAtOnce, EachGetTheirOwnDeclaration) {
    const apoio::PastaTemporaria pasta;
    const auto arquivo = pasta / "vinte.tarvo";
    CriarBanco(arquivo);
    BancoSQLite::Abrir(arquivo)->ExecutarScript(VinteDeclaracoes);
    const OpcoesAbertura opcoes{.tabelasDeTrabalho = GetParam()};
    const auto saida = [&](int i) { return pasta / (std::to_string(i) + ".json"); };

    std::vector<pid_t> filhos;
    for (int i = 1; i <= 20; ++i) {
        const pid_t filho = fork();
        ASSERT_GE(filho, 0);
        if (filho == 0) {
            int estado = 1;
            try {
                const auto banco = BancoSQLite::Abrir(arquivo, opcoes);
                std::ofstream(saida(i), std::ios::binary) << Paginas(*banco, i);
                estado = 0;
            } catch (const std::exception& erro) {
                std::fprintf(stderr, "%s\n", erro.what());
            }
            _exit(estado);
        }
        filhos.push_back(filho);
    }
    for (const pid_t filho : filhos) {
        int estado = 0;
        ASSERT_EQ(waitpid(filho, &estado, 0), filho);
        EXPECT_EQ(estado, 0);
    }
    const auto sozinho = BancoSQLite::Abrir(arquivo);
    for (int i = 1; i <= 20; ++i) {
        EXPECT_EQ(apoio::BytesDe(saida(i)), Paginas(*sozinho, i)) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(TabelaDeTrabalho, BuildsAtOnce,
                         testing::Values(TabelasDeTrabalho::NoBanco, TabelasDeTrabalho::Privadas));

}  // namespace
}  // namespace tarvo
