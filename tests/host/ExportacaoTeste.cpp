// SPDX-License-Identifier: MIT
#include <sys/times.h>
#include <unistd.h>

#include "tests/host/Programa.h"

namespace tarvo::host {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class Exportacao : public ComExemplo {
  protected:
    [[nodiscard]] std::string Chamada(const std::string& relatorios,
                                      const std::string& formato = "pdf") const {
        return "exportar " + Banco() + " --ie " + IE + " --drq " + drq + " --relatorios " +
               relatorios + " --formato " + formato + " --saida " + onde + " " + outros;
    }
    Execucao Exportar(const std::string& relatorios, const std::string& formato = "pdf",
                      const std::string& antes = "exec") {
        return Rodar(Chamada(relatorios, formato), antes);
    }
    void AlongarBairro() { Executar("update tblContribuinte set Bairro = printf('%.300c', 'W')"); }
    std::string IE = "250114377019";
    std::string drq = "101";
    std::string onde = Saida();
    std::string outros = "--ref-atual 07/2003";
};

TEST_F(Exportacao, FilesBearCodeAndClassInEveryFormat) {
    EXPECT_THAT(Exportar("01,11a,velo"), Termina(0));
    for (const auto* formato : {"png", "json", "csv", "XLSX"}) {
        EXPECT_THAT(Exportar("17", formato), Termina(0));
    }
    EXPECT_THAT(Arquivos(Saida()),
                ElementsAre("01-RelatorioCadastro.pdf", "11A-RelatorioDetRecCredAcVE.pdf",
                            "17-RelatorioPagamentos-001.png", "17-RelatorioPagamentos-002.png",
                            "17-RelatorioPagamentos.csv", "17-RelatorioPagamentos.json",
                            "17-RelatorioPagamentos.xlsx", "VELO-RelatorioVELO.pdf"));
    EXPECT_THAT(apoio::BytesDe(Saida("01-RelatorioCadastro.pdf")), StartsWith("%PDF-1.7"));
    EXPECT_THAT(apoio::BytesDe(Saida("17-RelatorioPagamentos.json")),
                AllOf(StartsWith("{ \"classe\": \"RelatorioPagamentos\""),
                      HasSubstr("Metalúrgica Serra Dourada"), EndsWith("]] }\n")));
    EXPECT_THAT(apoio::BytesDe(Saida("17-RelatorioPagamentos.csv")),
                HasSubstr("\r\nTotal;671850,09\r\n"));
    // A shorter document leaves no page of the longer one behind.
    drq = "102";
    EXPECT_THAT(Exportar("17", "png"), Termina(0));
    EXPECT_FALSE(fs::exists(Saida("17-RelatorioPagamentos-002.png")));
}

TEST_F(Exportacao, AllReportsAreWhatTheDialogOffers) {
    drq = "103";
    EXPECT_THAT(Exportar("todos", "json"), Termina(0));
    EXPECT_THAT(Arquivos(Saida()), SizeIs(17)) << "entry 15 is not offered before 2002";
    EXPECT_THAT(Exportar("15", "json"), Termina(0)) << "but built when asked for";
    EXPECT_THAT(Arquivos(Saida()), SizeIs(18));
}

TEST_F(Exportacao, WhatDoesNotExistIsSaidAndAReportThatFailsLeavesNoFileAndStopsNoOther) {
    drq = "999";
    EXPECT_THAT(Exportar("todos"), Termina(1, HasSubstr("erro 3021: ")));
    EXPECT_THAT(Arquivos(Saida()), IsEmpty());
    EXPECT_THAT(Exportar("09,10,17"), Termina(1, AllOf(HasSubstr("declaração 999 não existe"),
                                                       HasSubstr("erro 3021: relatório 10: "))));
    EXPECT_THAT(Arquivos(Saida()),
                ElementsAre("09-RelatorioMIDAXBCodigo3.pdf", "17-RelatorioPagamentos.pdf"));
    outros = "";
    EXPECT_THAT(Exportar("02"), Termina(1, AllOf(HasSubstr("erro 13: relatório 02: "),
                                                 HasSubstr("ref-atual MM/AAAA"))));
    IE = "\"x' or '1'='1\"";
    EXPECT_THAT(Exportar("01", "json"),
                Termina(0, HasSubstr("contribuinte x' or '1'='1 não existe")));
    EXPECT_THAT(apoio::BytesDe(Saida("01-RelatorioCadastro.json")), HasSubstr("[]] }"));
}

TEST_F(Exportacao, TextsThatWereCutAreSaidUnlessOnlyErrorsAreWanted) {
    AlongarBairro();
    drq = "999";
    const auto corte = HasSubstr("aviso: 01-RelatorioCadastro, página 1, a 0,20 × 6,00 cm");
    const auto erro = HasSubstr("erro 3021: relatório 10: ");
    EXPECT_THAT(Exportar("01,10"), Termina(1, AllOf(corte, erro)));
    outros += " --silencioso";
    const Execucao e = Exportar("01,10");
    EXPECT_THAT(e, Termina(1, StartsWith("erro 3021: relatório 10: ")));
    EXPECT_EQ(e.saida, "");
}

TEST_F(Exportacao, ProgramsGetTheResultOfEachReportAsALineOfJSON) {
    AlongarBairro();
    outros += " --json";
    for (const std::string formato : {"pdf", "png"}) {
        const auto linhas = LinhasJSON(Exportar("'17, 01'", formato).saida);
        ASSERT_EQ(linhas.size(), 2U);
        EXPECT_EQ(linhas[0]["relatorio"], "17");
        EXPECT_EQ(linhas[0]["ie"], "250114377019");
        EXPECT_EQ(linhas[0]["drq"], 101);
        EXPECT_EQ(linhas[0]["paginas"], 2);
        EXPECT_EQ(linhas[0]["arquivos"].size(), formato == "png" ? 2U : 1U);
        for (const auto& linha : linhas) {
            for (const auto& arquivo : linha["arquivos"]) {
                EXPECT_EQ(fs::file_size(arquivo["caminho"].get<std::string>()), arquivo["bytes"]);
            }
        }
        EXPECT_EQ(linhas[1]["cortados"][0]["texto"], std::string(300, 'W'));
        EXPECT_EQ(linhas[1]["cortados"][0]["pagina"], 1);
    }
}

TEST_F(Exportacao, OneReportCanGoToTheStandardOutput) {
    ASSERT_THAT(Exportar("17", "json"), Termina(0));
    onde = "-";
    outros += " --silencioso";
    EXPECT_EQ(Exportar("17", "json").saida, apoio::BytesDe(Saida("17-RelatorioPagamentos.json")));
    EXPECT_THAT(Exportar("17").saida, AllOf(StartsWith("%PDF"), EndsWith("%%EOF\n")));
    outros += " >/dev/full";
    EXPECT_THAT(Exportar("17"), Termina(1, StartsWith("erro 57: ")));
    EXPECT_THAT(Arquivos(Saida()), SizeIs(1));
}

TEST_F(Exportacao, AFolderThatCannotBeWrittenIsToldAndNothingIsLeft) {
    fs::create_directory(Saida());
    fs::permissions(Saida(), fs::perms(0555));
    for (const char* formato : {"pdf", "png", "json"}) {
        EXPECT_THAT(Exportar("17", formato, ComoNinguem), Termina(1, HasSubstr("erro 70: ")));
    }
    EXPECT_THAT(Arquivos(Saida()), IsEmpty());
}

TEST_F(Exportacao, AFullDiskLeavesTheOldFileWhole) {
    ASSERT_THAT(Exportar("06", "json"), Termina(0));
    const std::string arquivo = "06-RelatorioNotasSaiZFMALC.json";
    const std::string antes = apoio::BytesDe(Saida(arquivo));
    for (const char* formato : {"png", "json"}) {
        EXPECT_THAT(Exportar("06", formato, ComLimite("-f 78")),
                    Termina(1, HasSubstr("erro 61: relatório 06: ")));
    }
    EXPECT_THAT(Arquivos(Saida()), ElementsAre(arquivo));
    EXPECT_EQ(apoio::BytesDe(Saida(arquivo)), antes);
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
