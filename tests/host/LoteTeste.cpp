// SPDX-License-Identifier: MIT
#include <fstream>

#include "tests/host/LoteDeTeste.h"
#include "tests/support/MarcasDoPDF.h"

namespace tarvo::host {
namespace {

class Lote : public ComLote {};

TEST_F(Lote, WritesEveryDeclarationIntoItsFolderAndNeverTheDatabase) {
    const std::string antes = apoio::BytesDe(Banco());
    const Execucao e = RodarLote("--trabalhos 3");
    EXPECT_THAT(e, Termina(0));
    EXPECT_THAT(e.saida, AllOf(HasSubstr("250114377019-103  17 arquivos\n"),
                               HasSubstr("10 declarações: 178 arquivos gravados\n")));
    const auto arquivos = Arquivos(Saida());
    EXPECT_THAT(arquivos, SizeIs(179)) << "18 reports of 8 declarations, 17 of 2, the summary";
    EXPECT_THAT(arquivos, Not(Contains("250114377019-103/15-RelatorioDetResSubstitut.pdf")));
    EXPECT_THAT(Resumo(), SizeIs(178));
    for (const auto& [nome, data] : Datas()) {
        EXPECT_THAT(apoio::FaltasDasMarcas(Saida(nome)), IsEmpty()) << nome;
    }
    const std::string arquivo = "250114377019-101/10-RelatorioApuracaoOpProp.pdf";
    EXPECT_THAT(
        apoio::BytesDe(Saida("resumo.csv")),
        HasSubstr("\n250114377019;101;07/2003;10;" + arquivo + ";" +
                  std::to_string(fs::file_size(Saida(arquivo))) + ";2;0;0;;;com estrutura;"));
    EXPECT_EQ(Resumo().at({101, "10"}).conteudo.size(), 32U);
    EXPECT_EQ(Resumo().at({101, "02"}).refAtual, "07/2003") << "what its pages depend on";
    ConferirInteiros();
    EXPECT_EQ(apoio::BytesDe(Banco()), antes);
    EXPECT_THAT(Arquivos(pasta.Caminho()), Not(Contains(HasSubstr("exemplo.tarvo-"))));
}

// A sanitizer maps far more addresses than the program uses.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST_F(Lote, RunsToItsEndWithManyThreadsInLittleMemory) {
    EXPECT_THAT(RodarLote("--trabalhos 6", ComLimite("-v 156250")), Termina(0));
    ConferirInteiros();
}
#endif

TEST_F(Lote, ReadsWhatAnotherProgramHasNotMovedIntoTheFileYetAndLeavesItThere) {
    auto aberto = std::make_unique<OutroPrograma>(
        Banco(), "UPDATE tblContribuinte SET RazãoSocial = 'Nova Ltda.' WHERE IE LIKE '2501%'");
    const std::string antes = apoio::BytesDe(Banco());
    const std::string wal = apoio::BytesDe(Banco() + "-wal");
    ASSERT_THAT(wal, HasSubstr("Nova Ltda."));
    EXPECT_THAT(RodarLote("--relatorios 01 --formato json"), Termina(0));
    EXPECT_THAT(apoio::BytesDe(Saida("250114377019-101/01-RelatorioCadastro.json")),
                HasSubstr("Nova Ltda."));
    EXPECT_EQ(apoio::BytesDe(Banco()), antes);
    EXPECT_EQ(apoio::BytesDe(Banco() + "-wal"), wal);
    // Killed, that program no longer keeps the -wal.
    aberto.reset();
    EXPECT_THAT(RodarLote("--relatorios 01 --retomar"), Termina(0));
    EXPECT_EQ(apoio::BytesDe(Banco()), antes);
    EXPECT_EQ(apoio::BytesDe(Banco() + "-wal"), wal);
}

TEST_F(Lote, ATerminalShowsOneLineWithAnEstimate) {
    const std::string escrito = apoio::SaidaDe(
        "script -qec '" TARVO_PROGRAMA " " + Chamada("--relatorios 17 --trabalhos 1" + DoPrimeiro) +
        "' /dev/null </dev/null");
    EXPECT_THAT(escrito, AllOf(HasSubstr("\r1/3 declarações, 33 %, faltam "),
                               HasSubstr("\r3/3 declarações, 100 %"),
                               HasSubstr("\033[K3 declarações: 3 arquivos gravados\r\n")));
    EXPECT_THAT(escrito, Not(HasSubstr("250114377019")));
}

TEST_F(Lote, ATargetThatCannotBeWrittenEndsTheBatchAndOneFolderOnlyItsReports) {
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

TEST_F(Lote, ALockedDatabaseEndsTheBatchAndItGoesOnLater) {
    {
        const OutroPrograma exclusivo(Banco(), "PRAGMA journal_mode = DELETE; BEGIN EXCLUSIVE");
        EXPECT_THAT(RodarLote("--relatorios 17"),
                    Termina(1, AllOf(StartsWith("erro 3260: "), HasSubstr("Feche o outro"))));
    }
    // Someone who only writes locks nobody out.
    const OutroPrograma escrevendo(Banco(), "PRAGMA journal_mode = WAL; BEGIN IMMEDIATE");
    EXPECT_THAT(RodarLote("--relatorios 17"), Termina(0));
}

TEST_F(Lote, ADamagedPageFailsOnlyTheReportsThatReadIt) {
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
