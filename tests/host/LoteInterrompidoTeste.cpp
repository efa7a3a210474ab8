// SPDX-License-Identifier: MIT
#include <csignal>
#include <fstream>

#include "tests/host/LoteDeTeste.h"

namespace tarvo::host {
namespace {

class LoteQueParou : public ComLote {
  protected:
    // Of the files that the summary says are complete.
    DatasPorNome Prontos() {
        DatasPorNome prontos;
        for (const auto& [chave, linha] : Resumo()) {
            if (linha.erro == 0) {
                prontos[linha.arquivo] = fs::last_write_time(Saida(linha.arquivo));
            }
        }
        return prontos;
    }
    // The batch goes on to its end and leaves those files alone.
    void Retomar(const std::string& chamada, const DatasPorNome& antes) {
        EXPECT_THAT(RodarLote(chamada + " --retomar"), Termina(0));
        EXPECT_THAT(Refeitos(antes), IsEmpty());
    }
};

// What a stopped batch left is whole, and the next run makes exactly the rest.
class LoteInterrompido : public LoteQueParou, public testing::WithParamInterface<int> {};

TEST_P(LoteInterrompido, GoesOnWhereItStopped) {
    Multiplicar();
    const std::string relatorios = "--relatorios 01,17";
    Programa primeira(Chamada(relatorios));
    Esperar(primeira, [&] { return Resumo().size() >= 100; });
    primeira.Sinalizar(GetParam());
    const Execucao e = primeira.Esperar();
    const auto antes = Prontos();
    ASSERT_GE(antes.size(), 100U);
    ASSERT_LT(antes.size(), 1220U) << "the batch ended before it was stopped";
    if (GetParam() == SIGKILL) {
        EXPECT_EQ(e.situacao, 128 + SIGKILL);
    } else {
        EXPECT_THAT(e, Termina(1, HasSubstr("--retomar")));
        EXPECT_EQ(Datas(), antes) << "the summary knows them all";
    }
    ConferirInteiros();
    EXPECT_THAT(RodarLote(relatorios),
                Termina(1, AllOf(StartsWith("erro 58: "), HasSubstr("--retomar"))));
    Retomar(relatorios, antes);
    EXPECT_THAT(Resumo(), SizeIs(1220));
    EXPECT_THAT(Arquivos(Saida()), SizeIs(1221));
    ConferirInteiros();
}

INSTANTIATE_TEST_SUITE_P(Sinais, LoteInterrompido, testing::Values(SIGINT, SIGTERM, SIGKILL));

TEST_F(LoteQueParou, ResumingBelievesOnlyWholeLinesOfWholeFiles) {
    const std::string chamada = "--relatorios 01,17" + DoPrimeiro;
    ASSERT_THAT(RodarLote(chamada), Termina(0));
    auto antes = Datas();
    ASSERT_THAT(antes, SizeIs(6));
    // A power failure left one file short and lost another; a kill cut the last line.
    const std::string curto = "250114377019-101/01-RelatorioCadastro.pdf";
    const std::string perdido = "250114377019-102/17-RelatorioPagamentos.pdf";
    fs::resize_file(Saida(curto), 0);
    fs::remove(Saida(perdido));
    antes.erase(curto);
    antes.erase(perdido);
    std::ofstream(Saida("resumo.csv"), std::ios::app | std::ios::binary)
        << "250114377019;103;11/2001;17;250114377019-103/17-Relat";
    Retomar(chamada, antes);
    EXPECT_THAT(Resumo(), SizeIs(6));
    EXPECT_THAT(Arquivos(Saida()), SizeIs(7));
    ConferirInteiros();
}

TEST_F(LoteQueParou, ResumingOnePartKeepsTheSummaryOfTheOthers) {
    Executar("update tblDRQ set SaldoCredAntDig = null where NroDRQ = 201");
    ASSERT_EQ(RodarLote("--relatorios 10").situacao, 1);
    ASSERT_EQ(Resumo().at({201, "10"}).erro, 94);
    EXPECT_THAT(RodarLote("--relatorios 17 --retomar" + DoPrimeiro), Termina(0));
    EXPECT_THAT(Resumo(), SizeIs(13));
    EXPECT_EQ(Resumo().at({201, "10"}).erro, 94);
}

TEST_F(LoteQueParou, AFileThatIsNoSummaryIsNotTouched) {
    fs::create_directory(Saida());
    std::ofstream(Saida("resumo.csv")) << "do usuário\n";
    EXPECT_THAT(RodarLote(), Termina(1, StartsWith("erro 58: ")));
    EXPECT_THAT(RodarLote("--retomar"), Termina(1, StartsWith("erro 5: ")));
    EXPECT_EQ(apoio::BytesDe(Saida("resumo.csv")), "do usuário\n");
    EXPECT_THAT(Arquivos(Saida()), SizeIs(1));
}

TEST_F(LoteQueParou, AFullDiskEndsTheBatchWithWholeFilesAndItGoesOnLater) {
    EXPECT_THAT(RodarLote("", ComLimite("-f 68")),
                Termina(1, AllOf(HasSubstr("erro 61: "), HasSubstr("--retomar"))));
    ConferirInteiros();
    const auto antes = Datas();
    EXPECT_EQ(antes, Prontos());
    Retomar("", antes);
    EXPECT_THAT(Resumo(), SizeIs(178));
}

TEST_F(LoteQueParou, ATargetThatCannotBeWrittenEndsTheBatchAndOneFolderOnlyItsReports) {
    fs::create_directories(Saida("250114377019-101"));
    fs::permissions(Saida("250114377019-101"), fs::perms(0555));
    fs::permissions(Saida(), fs::perms(0555));
    EXPECT_THAT(RodarLote("", ComoNinguem), Termina(1, StartsWith("erro 70: ")));
    EXPECT_THAT(Arquivos(Saida()), IsEmpty());
    fs::permissions(Saida(), fs::perms::all);
    EXPECT_THAT(RodarLote("--relatorios 17" + DoPrimeiro, ComoNinguem),
                Termina(1, StartsWith("erro 70: declaração 101, relatório 17: ")));
    EXPECT_EQ(Resumo().at({101, "17"}).erro, 70);
    EXPECT_EQ(Resumo().at({102, "17"}).erro, 0);
}

TEST_F(LoteQueParou, ALockedDatabaseEndsTheBatchAndItGoesOnLater) {
    {
        const OutroPrograma exclusivo(Banco(), "PRAGMA journal_mode = DELETE; BEGIN EXCLUSIVE");
        EXPECT_THAT(RodarLote("--relatorios 17"),
                    Termina(1, AllOf(StartsWith("erro 3260: "), HasSubstr("Feche o outro"))));
    }
    // Someone who only writes locks nobody out.
    const OutroPrograma escrevendo(Banco(), "PRAGMA journal_mode = WAL; BEGIN IMMEDIATE");
    EXPECT_THAT(RodarLote("--relatorios 17"), Termina(0));
}

TEST_F(LoteQueParou, ADamagedPageFailsOnlyTheReportsThatReadIt) {
    constexpr std::size_t Pagina = 4096;
    std::string bytes = apoio::BytesDe(Banco());
    const std::size_t registro = bytes.find("01/0977310-002");  // of tblRegistroExportação
    ASSERT_NE(registro, std::string::npos);
    bytes.replace(registro / Pagina * Pagina, 100, std::string(100, '\xFF'));
    std::ofstream(Banco(), std::ios::binary) << bytes;
    EXPECT_THAT(RodarLote("--relatorios 16,17"),
                Termina(1, HasSubstr("erro 3343: declaração 103, relatório 16: ")));
    EXPECT_EQ(Resumo().at({103, "16"}).erro, 3343);
    EXPECT_EQ(Resumo().at({103, "17"}).erro, 0);
    EXPECT_EQ(apoio::BytesDe(Banco()), bytes);
}

}  // namespace
}  // namespace tarvo::host
