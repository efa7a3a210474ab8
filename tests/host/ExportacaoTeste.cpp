#include <sys/resource.h>

#include <nlohmann/json.hpp>

#include "host/Exportacao.h"
#include "tests/host/Programa.h"

namespace tarvo::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

using Exportacao = ComExemplo;

TEST_F(Exportacao, FilesBearCodeAndClassInEveryFormat) {
    EXPECT_EQ(Exportar("01,11a,velo").situacao, 0);
    EXPECT_EQ(Exportar("17", "png").situacao, 0);
    EXPECT_EQ(Exportar("17", "json").situacao, 0);
    EXPECT_THAT(Arquivos(Saida()),
                ElementsAre("01-RelatorioCadastro.pdf", "11A-RelatorioDetRecCredAcVE.pdf",
                            "17-RelatorioPagamentos-001.png", "17-RelatorioPagamentos-002.png",
                            "17-RelatorioPagamentos.json", "VELO-RelatorioVELO.pdf"));
    EXPECT_THAT(Conteudo(Saida() + "/01-RelatorioCadastro.pdf"), StartsWith("%PDF-1.7"));
    // A shorter document leaves no page of the longer one behind.
    EXPECT_EQ(Exportar("17", "png", "102").situacao, 0);
    EXPECT_FALSE(std::filesystem::exists(Saida() + "/17-RelatorioPagamentos-002.png"));
}

TEST_F(Exportacao, TheJsonFileReadsBackAsTheRecordedDocument) {
    ASSERT_EQ(Exportar("09", "json").situacao, 0);
    const auto json = nlohmann::json::parse(Conteudo(Saida() + "/09-RelatorioMIDAXBCodigo3.json"));
    const auto banco = BancoSQLite::Abrir(Banco());
    const auto relatorio = ConstruirRelatorio("09", *banco, {"250114377019", 101}, {});
    const auto& documento = relatorio->Documento();
    EXPECT_EQ(json["classe"], "RelatorioMIDAXBCodigo3");
    EXPECT_EQ(json["titulo"], documento.titulo);
    EXPECT_EQ(json["margens"], nlohmann::json({2, 2, 2, 2}));
    ASSERT_GT(documento.paginas.size(), 1U);
    ASSERT_EQ(json["paginas"].size(), documento.paginas.size());
    for (std::size_t p = 0; p < documento.paginas.size(); ++p) {
        ASSERT_EQ(json["paginas"][p].size(), documento.paginas[p].size());
        for (std::size_t i = 0; i < documento.paginas[p].size(); ++i) {
            const auto& operacao = json["paginas"][p][i];
            const Caixa caixa =
                std::visit([](const auto& o) { return o.caixa; }, documento.paginas[p][i]);
            EXPECT_EQ(operacao[1].get<double>(), caixa.x);
            EXPECT_EQ(operacao[2].get<double>(), caixa.y);
            if (const auto* texto = std::get_if<Texto>(&documento.paginas[p][i])) {
                EXPECT_EQ(operacao[5], texto->texto);
            }
        }
    }
}

TEST_F(Exportacao, AllReportsAreWhatTheDialogOffers) {
    EXPECT_EQ(Exportar("todos").situacao, 0);
    EXPECT_THAT(Arquivos(Saida()), SizeIs(18));
    std::filesystem::remove_all(Saida());
    EXPECT_EQ(Exportar("todos", "pdf", "103").situacao, 0);
    EXPECT_THAT(Arquivos(Saida()), SizeIs(17)) << "entry 15 is not offered before 2002";
    EXPECT_EQ(Exportar("15", "pdf", "103").situacao, 0) << "asked for by its code it is built";
    EXPECT_THAT(Arquivos(Saida()), SizeIs(18));
}

TEST_F(Exportacao, WhatDoesNotExistIsSaidAndGivesEmptyDocuments) {
    const Execucao semContribuinte = Exportar("01", "json", "101", "x' or '1'='1");
    EXPECT_EQ(semContribuinte.situacao, 0);
    EXPECT_THAT(semContribuinte.erros, HasSubstr("contribuinte x' or '1'='1 não existe"));
    EXPECT_THAT(Conteudo(Saida() + "/01-RelatorioCadastro.json"), HasSubstr("[]] }"));

    const Execucao semDeclaracao = Exportar("17", "json", "999");
    EXPECT_EQ(semDeclaracao.situacao, 0);
    EXPECT_THAT(semDeclaracao.erros, HasSubstr("declaração 999 não existe"));

    std::filesystem::remove_all(Saida());
    const Execucao todos = Exportar("todos", "pdf", "999");
    EXPECT_EQ(todos.situacao, 1);
    EXPECT_THAT(todos.erros, HasSubstr("erro 3021: "));
    EXPECT_THAT(Arquivos(Saida()), IsEmpty());
}

TEST_F(Exportacao, AReportThatFailsLeavesNoFileAndStopsNoOther) {
    const Execucao e = Exportar("09,10,17", "pdf", "999");
    EXPECT_EQ(e.situacao, 1);
    EXPECT_THAT(e.erros, HasSubstr("erro 3021: relatório 10: "));
    EXPECT_THAT(Arquivos(Saida()),
                ElementsAre("09-RelatorioMIDAXBCodigo3.pdf", "17-RelatorioPagamentos.pdf"));
    const Execucao semReferencia =
        Rodar({"exportar", Banco(), "--ie", "250114377019", "--drq", "101", "--relatorios", "02",
               "--formato", "pdf", "--saida", Saida()});
    EXPECT_EQ(semReferencia.situacao, 1);
    EXPECT_THAT(semReferencia.erros, HasSubstr("erro 13: relatório 02: "));
    EXPECT_THAT(semReferencia.erros, HasSubstr("ref-atual MM/AAAA"));
}

TEST_F(Exportacao, TextsThatWereCutAreSaid) {
    BancoSQLite::Abrir(Banco())->ExecutarScript(
        "update tblContribuinte set Bairro = printf('%.300c', 'W') where IE = '250114377019';");
    const Execucao e = Exportar("01");
    EXPECT_EQ(e.situacao, 0);
    EXPECT_THAT(e.erros, HasSubstr("aviso: 01-RelatorioCadastro, página 1, a 0,20 × 6,00 cm"));
}

TEST_F(Exportacao, AFolderThatCannotBeWrittenIsToldAndNothingIsLeft) {
    CriarPastaProtegida(Saida());
    for (const char* formato : {"pdf", "png", "json"}) {
        const Execucao e = Exportar("17", formato, "101", "250114377019", {.comoNinguem = true});
        EXPECT_EQ(e.situacao, 1);
        EXPECT_THAT(e.erros, HasSubstr("erro 70: "));
    }
    EXPECT_THAT(Arquivos(Saida()), IsEmpty());
}

TEST_F(Exportacao, AFullDiskLeavesTheOldFileWhole) {
    ASSERT_EQ(Exportar("06", "json").situacao, 0);
    const std::string arquivo = "06-RelatorioNotasSaiZFMALC.json";
    const std::string antes = Conteudo(Saida() + "/" + arquivo);
    for (const char* formato : {"png", "json"}) {
        const Execucao e =
            Exportar("06", formato, "101", "250114377019", {.limiteDeArquivo = 40'000});
        EXPECT_EQ(e.situacao, 1);
        EXPECT_THAT(e.erros, HasSubstr("erro 61: relatório 06: "));
    }
    EXPECT_THAT(Arquivos(Saida()), ElementsAre(arquivo));
    EXPECT_EQ(Conteudo(Saida() + "/" + arquivo), antes);
}

// The reports that refill a work table, in a database that has none to offer.
void EsperarTabelasPrivadas(const Execucao& e, const std::string& saida) {
    EXPECT_EQ(e.situacao, 0) << e.erros;
    EXPECT_THAT(e.erros, HasSubstr("não pode ser alterado"));
    EXPECT_THAT(Arquivos(saida), SizeIs(4));
}

TEST_F(Exportacao, ADatabaseThatCannotBeWrittenIsReadWithPrivateWorkTables) {
    std::filesystem::create_directory(Saida());
    std::filesystem::permissions(Saida(), std::filesystem::perms::all);
    const std::string antes = Conteudo(Banco());
    const Condicoes ninguem{.comoNinguem = true};
    std::filesystem::permissions(Banco(), std::filesystem::perms(0444));
    EsperarTabelasPrivadas(Exportar("02,03,10,14", "pdf", "101", "250114377019", ninguem), Saida());
    std::filesystem::permissions(Banco(), std::filesystem::perms(0666));
    std::filesystem::permissions(pasta.Caminho(), std::filesystem::perms(0555));
    EsperarTabelasPrivadas(Exportar("02,03,10,14", "pdf", "101", "250114377019", ninguem), Saida());
    std::filesystem::permissions(pasta.Caminho(), std::filesystem::perms::all);
    EXPECT_EQ(Conteudo(Banco()), antes);
}

TEST_F(Exportacao, ALockedDatabaseStopsOnlyWhatNeedsTheLock) {
    {
        const OutroPrograma escrevendo(Banco(), "BEGIN IMMEDIATE");
        const Execucao e = Exportar("10,17");
        EXPECT_EQ(e.situacao, 1);
        EXPECT_THAT(e.erros, HasSubstr("erro 3260: relatório 10: "));
        EXPECT_THAT(e.erros, HasSubstr("Feche o outro programa"));
        EXPECT_THAT(Arquivos(Saida()), ElementsAre("17-RelatorioPagamentos.pdf"));
    }
    const OutroPrograma exclusivo(Banco(), "PRAGMA journal_mode = DELETE; BEGIN EXCLUSIVE");
    const Execucao e = Exportar("17");
    EXPECT_EQ(e.situacao, 1);
    EXPECT_THAT(e.erros, StartsWith("erro 3260: "));
}

TEST_F(Exportacao, OneReportCostsLittleProcessorTime) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "sanitizers change the figure";
#endif
    rusage antes{};
    getrusage(RUSAGE_CHILDREN, &antes);
    ASSERT_EQ(Exportar("01").situacao, 0);
    rusage depois{};
    getrusage(RUSAGE_CHILDREN, &depois);
    const auto milissegundos = [](const rusage& r) {
        return (r.ru_utime.tv_sec + r.ru_stime.tv_sec) * 1000 +
               (r.ru_utime.tv_usec + r.ru_stime.tv_usec) / 1000;
    };
    EXPECT_LT(milissegundos(depois) - milissegundos(antes), 50);
}

}  // namespace
}  // namespace tarvo::host
