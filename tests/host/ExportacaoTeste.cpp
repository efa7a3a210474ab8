// SPDX-License-Identifier: MIT
#include <sys/times.h>
#include <unistd.h>

#include "tests/host/Programa.h"

namespace tarvo::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class Exportacao : public ComExemplo {
  protected:
    [[nodiscard]] std::string Chamada(const std::string& relatorios,
                                      const std::string& formato = "pdf") const {
        return "exportar " + Banco() + " --ie 250114377019 --drq 101 --ref-atual 07/2003" +
               " --relatorios " + relatorios + " --formato " + formato + " --saida " + Saida();
    }
    Execucao Exportar(const std::string& relatorios, const std::string& formato = "pdf",
                      const std::string& antes = "exec") {
        return Rodar(Chamada(relatorios, formato), antes);
    }
};

TEST_F(Exportacao, AFolderThatCannotBeWrittenIsToldAndNothingIsLeft) {
    fs::create_directory(Saida());
    fs::permissions(Saida(), fs::perms(0555));
    for (const char* formato : {"pdf", "png", "json"}) {
        EXPECT_THAT(Exportar("17", formato, ComoNinguem), Termina(1, HasSubstr("erro 70: ")));
    }
    EXPECT_THAT(Arquivos(Saida()), IsEmpty());
}

// Sanitizers need files of their own.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST_F(Exportacao, TooFewOpenFilesAreToldAsThatAndNotAsAMissingFont) {
    for (const char* quantos : {"-n 9", "-n 12"}) {
        EXPECT_THAT(Exportar("01", "pdf", ComLimite(quantos)), Termina(1, StartsWith("erro 67: ")))
            << quantos;
    }
    EXPECT_THAT(Arquivos(Saida()), IsEmpty());
}
#endif

TEST_F(Exportacao, ADatabaseThatCannotBeWrittenIsReadWithPrivateWorkTables) {
    fs::create_directory(Saida());
    fs::permissions(Saida(), fs::perms::all);
    const std::string antes = apoio::BytesDe(Banco());
    // Reports that refill a work table, with the file protected and with its folder.
    for (const auto& protegido : {fs::path(Banco()), pasta.Caminho()}) {
        fs::permissions(protegido, fs::perms(0555));
        EXPECT_THAT(Exportar("02,03,10,14", "pdf", ComoNinguem),
                    Termina(0, HasSubstr("não pode ser alterado")));
        fs::permissions(protegido, fs::perms::all);
    }
    EXPECT_THAT(Arquivos(Saida()), SizeIs(4));
    EXPECT_EQ(apoio::BytesDe(Banco()), antes);
}

TEST_F(Exportacao, ALockedDatabaseStopsOnlyWhatNeedsTheLock) {
    auto escrevendo = std::make_unique<OutroPrograma>(Banco(), "BEGIN IMMEDIATE");
    Programa impaciente(Chamada("17,10", "json"));
    EXPECT_TRUE(impaciente.Dizer("aguardando o banco"));
    impaciente.Sinalizar(SIGTERM);
    EXPECT_THAT(impaciente.Esperar(), Termina(1, HasSubstr("erro 18: relatório 10: ")));
    EXPECT_THAT(Arquivos(Saida()), ElementsAre("17-RelatorioPagamentos.json"));
    Programa paciente(Chamada("17,10", "json"));
    EXPECT_TRUE(paciente.Dizer("aguardando o banco"));
    escrevendo.reset();
    EXPECT_THAT(paciente.Esperar(), Termina(0));
}

TEST_F(Exportacao, AnEndlessQueryEndsWithTheFirstSignal) {
    Executar(
        "DROP TABLE tblPagamento; CREATE VIEW tblPagamento AS WITH RECURSIVE n(i) AS (SELECT 1 "
        "UNION ALL SELECT i + 1 FROM n) SELECT 101 AS NroDRQ, 0 AS \"OpPróprias\", '2003-01-01' "
        "AS Data, i AS Valor FROM n WHERE i % 7 = 9");
    for (const int sinal : {SIGINT, SIGTERM}) {
        Programa exportacao(Chamada("01,17,16", "json"));
        while (Arquivos(Saida()).empty()) {
            ::usleep(1000);
        }
        exportacao.Sinalizar(sinal);
        EXPECT_THAT(exportacao.Esperar(), Termina(1, HasSubstr("erro 18: relatório 17: ")));
        EXPECT_THAT(Arquivos(Saida()), ElementsAre("01-RelatorioCadastro.json"));
        fs::remove_all(Saida());
        fs::create_directory(Saida());
        Programa copia("copiar " + Banco() + " " + Saida("copia.tarvo"));
        while (Arquivos(Saida()).empty()) {
            ::usleep(1000);
        }
        copia.Sinalizar(sinal);
        EXPECT_THAT(copia.Esperar(), Termina(1, StartsWith("erro 18: ")));
        EXPECT_TRUE(fs::is_empty(Saida())) << "nothing of a copy that was not finished";
        fs::remove(Saida());
    }
}

TEST_F(Exportacao, DamageThatNoReportMeetsIsSaid) {
    const OutroPrograma danificando(
        Banco(),
        "PRAGMA writable_schema = ON; UPDATE sqlite_master SET rootpage = (SELECT rootpage FROM "
        "sqlite_master WHERE name = 'idxtblMIDAXNroDRQ') WHERE name = 'idxtblZFM_ALCNroDRQ'");
    const auto avisa = HasSubstr("aviso: o banco está danificado");
    EXPECT_THAT(Exportar("todos", "json").erros, avisa);
    EXPECT_THAT(Rodar("lote " + Banco() + " --relatorios 17 --saida " + Saida("lote")).erros,
                avisa);
}

TEST_F(Exportacao, OneReportCostsLittleProcessorTime) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "sanitizers change the figure";
#endif
    tms antes{};
    ::times(&antes);
    ASSERT_THAT(Exportar("01"), Termina(0));
    tms depois{};
    ::times(&depois);
    const auto tempo = [](const tms& t) { return t.tms_cutime + t.tms_cstime; };
    EXPECT_LT(tempo(depois) - tempo(antes), ::sysconf(_SC_CLK_TCK) / 20);
}

}  // namespace
}  // namespace tarvo::host
