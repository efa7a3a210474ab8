#include <chrono>
#include <csignal>
#include <map>
#include <sstream>
#include <thread>

#include "tests/host/Programa.h"

namespace tarvo::host {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

class Lote : public ComExemplo {
  protected:
    [[nodiscard]] std::vector<std::string> Argumentos(std::vector<std::string> outros = {}) const {
        std::vector<std::string> lista{"lote",  Banco(),       "--saida",
                                       Saida(), "--ref-atual", "07/2003"};
        lista.insert(lista.end(), outros.begin(), outros.end());
        return lista;
    }

    // The example's declarations many times over, so that a batch takes a while.
    void Multiplicar(int vezes) {
        BancoSQLite::Abrir(Banco())->ExecutarScript(
            "create temp table n as with recursive r(i) as (select 1 union all select i + 1 from r "
            "where i < " +
            std::to_string(vezes) +
            ") select i from r;"
            "insert into tblDRQ select NroDRQ + 1000 * i, IE, Ref1, Ref2, Tipo, RegTrib, "
            "Consistente, "
            "Autenticação, SaldoCredAntDig, ICMSFixPerRES, OutrasRES, DeduçõesRPA, "
            "SaldoCredAntDigST, DeduçõesST from tblDRQ, n;");
    }

    // Files that hold a whole PDF; the others are none of a batch's.
    void ConferirInteiros() {
        for (const auto& nome : Arquivos(Saida())) {
            if (nome != "resumo.csv") {
                EXPECT_THAT(Conteudo(Saida() + "/" + nome),
                            AllOf(StartsWith("%PDF"), testing::EndsWith("%%EOF\n")))
                    << nome;
            }
        }
    }

    std::vector<std::string> LinhasDoResumo() {
        std::istringstream resumo(Conteudo(Saida() + "/resumo.csv"));
        std::vector<std::string> linhas;
        for (std::string linha; std::getline(resumo, linha);) {
            linhas.push_back(linha);
        }
        return linhas;
    }
};

TEST_F(Lote, WritesEveryDeclarationIntoItsFolderAndNeverTheDatabase) {
    const std::string antes = Conteudo(Banco());
    const Execucao e = Rodar(Argumentos());
    EXPECT_EQ(e.situacao, 0) << e.erros;
    const auto arquivos = Arquivos(Saida());
    EXPECT_THAT(arquivos, SizeIs(179)) << "18 reports of 8 declarations, 17 of 2, the summary";
    EXPECT_THAT(arquivos, Contains("250114377019-101/10-RelatorioApuracaoOpProp.pdf"));
    EXPECT_THAT(arquivos, Not(Contains("250114377019-103/15-RelatorioDetResSubstitut.pdf")));
    EXPECT_THAT(LinhasDoResumo(), SizeIs(179));
    EXPECT_THAT(LinhasDoResumo(),
                Contains("250114377019;101;07/2003;10;"
                         "250114377019-101/10-RelatorioApuracaoOpProp.pdf;2;0;0;\r"));
    ConferirInteiros();
    EXPECT_EQ(Conteudo(Banco()), antes);
    EXPECT_THAT(Arquivos(pasta.Caminho()), Not(Contains(HasSubstr("-wal"))));
}

TEST_F(Lote, FiltersByTaxpayerAndMonths) {
    EXPECT_EQ(Rodar(Argumentos({"--ie", "250114377019", "--de", "07/2003", "--ate", "07/2003",
                                "--relatorios", "17"}))
                  .situacao,
              0);
    EXPECT_THAT(Arquivos(Saida()),
                ElementsAre("250114377019-101/17-RelatorioPagamentos.pdf", "resumo.csv"));
}

TEST_F(Lote, OneFilePerDeclarationHasAnOutlineOfItsReports) {
    EXPECT_EQ(Rodar(Argumentos({"--unico", "--ie", "250114377019"})).situacao, 0);
    EXPECT_THAT(Arquivos(Saida()), ElementsAre("250114377019-101.pdf", "250114377019-102.pdf",
                                               "250114377019-103.pdf", "resumo.csv"));
    ConferirInteiros();
    EXPECT_THAT(LinhasDoResumo(),
                Contains(StartsWith("250114377019;101;07/2003;todos;250114377019-101.pdf;46;")));
}

TEST_F(Lote, AFailingReportStandsInTheSummaryAndStopsNothing) {
    BancoSQLite::Abrir(Banco())->ExecutarScript(
        "update tblDRQ set SaldoCredAntDig = null where NroDRQ = 101;");
    const Execucao e = Rodar(Argumentos({"--relatorios", "10,17", "--ie", "250114377019"}));
    EXPECT_EQ(e.situacao, 1);
    EXPECT_THAT(e.erros, HasSubstr("1 falha(s)"));
    EXPECT_THAT(LinhasDoResumo(),
                Contains(AllOf(StartsWith("250114377019;101;07/2003;10;"), HasSubstr(";94;"))));
    EXPECT_THAT(Arquivos(Saida()), SizeIs(6)) << "five reports and the summary";
    // What failed is tried again, and only that.
    BancoSQLite::Abrir(Banco())->ExecutarScript(
        "update tblDRQ set SaldoCredAntDig = 0 where NroDRQ = 101;");
    EXPECT_EQ(
        Rodar(Argumentos({"--relatorios", "10,17", "--ie", "250114377019", "--retomar"})).situacao,
        0);
    EXPECT_THAT(LinhasDoResumo(), AllOf(SizeIs(7), Not(Contains(HasSubstr(";94;")))));
}

// The fifth column of a line of the summary.
std::string ArquivoDaLinha(const std::string& linha) {
    std::istringstream colunas(linha);
    std::string coluna;
    for (int i = 0; i < 5; ++i) {
        std::getline(colunas, coluna, ';');
    }
    return coluna;
}

// What a stopped batch left is whole, and the next run makes exactly the rest.
class LoteInterrompido : public Lote, public testing::WithParamInterface<int> {};

TEST_P(LoteInterrompido, GoesOnWhereItStopped) {
    Multiplicar(60);
    Programa primeira(Argumentos({"--relatorios", "01,17"}));
    for (int i = 0; i < 20'000 && LinhasDoResumo().size() < 100; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    ASSERT_GE(LinhasDoResumo().size(), 100U);
    primeira.Sinalizar(GetParam());
    const Execucao e = primeira.Esperar();
    if (GetParam() == SIGINT) {
        EXPECT_EQ(e.situacao, 1);
        EXPECT_THAT(e.erros, HasSubstr("--retomar"));
        EXPECT_THAT(Arquivos(Saida()), Not(Contains(HasSubstr(".tmp"))));
    }
    const auto registrados = LinhasDoResumo().size() - 1;
    ASSERT_LT(registrados, 1220U) << "the batch ended before it was stopped";
    std::map<std::string, std::filesystem::file_time_type> antes;
    for (const auto& linha : LinhasDoResumo()) {
        const std::string nome = ArquivoDaLinha(linha);
        if (nome.ends_with(".pdf") && linha.ends_with("\r")) {
            antes[nome] = std::filesystem::last_write_time(Saida() + "/" + nome);
        }
    }
    EXPECT_GE(antes.size() + 1, registrados);
    EXPECT_EQ(Rodar(Argumentos({"--relatorios", "01,17"})).situacao, 1) << "not without --retomar";
    EXPECT_EQ(Rodar(Argumentos({"--relatorios", "01,17", "--retomar"})).situacao, 0);
    for (const auto& [nome, momento] : antes) {
        EXPECT_EQ(std::filesystem::last_write_time(Saida() + "/" + nome), momento) << nome;
    }
    EXPECT_THAT(LinhasDoResumo(), SizeIs(1221));
    for (const auto& nome : Arquivos(Saida())) {
        if (nome.ends_with(".tmp")) {
            std::filesystem::remove(Saida() + "/" + nome);  // only a kill leaves one
            EXPECT_EQ(GetParam(), SIGKILL);
        }
    }
    ConferirInteiros();
}

INSTANTIATE_TEST_SUITE_P(Sinais, LoteInterrompido, testing::Values(SIGINT, SIGKILL));

TEST_F(Lote, AFullDiskIsToldAndLeavesOnlyWholeFiles) {
    Programa programa(Argumentos({"--relatorios", "01,03"}), false, 40'000);
    const Execucao e = programa.Esperar();
    EXPECT_EQ(e.situacao, 1);
    EXPECT_THAT(e.erros + Conteudo(Saida() + "/resumo.csv"), HasSubstr("espaço"));
    EXPECT_THAT(Arquivos(Saida()), Not(Contains(HasSubstr(".tmp"))));
    ConferirInteiros();
}

TEST_F(Lote, ATargetThatCannotBeWrittenEndsTheBatchAtOnce) {
    std::filesystem::create_directory(Saida());
    std::filesystem::permissions(Saida(), std::filesystem::perms::owner_all |
                                              std::filesystem::perms::others_read |
                                              std::filesystem::perms::others_exec);
    const Execucao e = Rodar(Argumentos(), true);
    EXPECT_EQ(e.situacao, 1);
    EXPECT_THAT(e.erros, StartsWith("erro 70: "));
    EXPECT_THAT(Arquivos(Saida()), IsEmpty());
}

}  // namespace
}  // namespace tarvo::host
