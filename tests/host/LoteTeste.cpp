// SPDX-License-Identifier: MIT
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

TEST_F(Lote, ProgramsGetALineOfJSONForEachReportAndASilentBatchSaysNothing) {
    Executar("update tblContribuinte set Bairro = printf('%.300c', 'W')");
    const Execucao e = RodarLote("--relatorios 01,17 --trabalhos 3 --json --silencioso");
    EXPECT_THAT(e, Termina(0, ""));
    const auto linhas = LinhasJSON(e.saida);
    ASSERT_THAT(linhas, SizeIs(20));
    for (const auto& linha : linhas) {
        const auto& arquivo = linha["arquivos"][0];
        EXPECT_EQ(fs::file_size(arquivo["caminho"].get<std::string>()), arquivo["bytes"]);
        EXPECT_EQ(linha["cortados"].size(), linha["relatorio"] == "01" ? 1U : 0U);
    }
    EXPECT_THAT(RodarLote("--relatorios 01 --retomar --silencioso").saida, IsEmpty());
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

TEST_F(Lote, FiltersByTaxpayerAndMonths) {
    Executar("update tblDRQ set Ref1 = null where NroDRQ = 102");
    const std::pair<std::string, std::vector<int>> casos[] = {
        {"--ate 12/2001", {103, 201}},
        {"--de 07/2003", {101, 601}},
        {"--de 12/2001 --ate 12/2002", {201, 301}},
        {DoPrimeiro, {101, 102, 103}},
        {DoPrimeiro + " --de 07/2003 --ate 07/2003", {101}},
        {"--ie 1", {}},
    };
    for (const auto& [filtro, declaracoes] : casos) {
        fs::remove_all(Saida());
        EXPECT_THAT(RodarLote("--relatorios 01 " + filtro), Termina(0));
        std::vector<int> produzidas;
        for (const auto& [chave, linha] : Resumo()) {
            produzidas.push_back(chave.first);
        }
        EXPECT_EQ(produzidas, declaracoes);
        EXPECT_THAT(Datas(), SizeIs(declaracoes.size()));
    }
}

TEST_F(Lote, OneFilePerDeclarationHasAnOutlineOfItsReports) {
    EXPECT_THAT(RodarLote("--unico" + DoPrimeiro), Termina(0));
    EXPECT_THAT(Arquivos(Saida()), ElementsAre("250114377019-101.pdf", "250114377019-102.pdf",
                                               "250114377019-103.pdf", "resumo.csv"));
    ConferirInteiros();
    EXPECT_EQ(Resumo().at({101, "todos"}).paginas, 46U);
    EXPECT_THAT(
        apoio::SaidaDe("qpdf --json --json-key=outlines '" + Saida("250114377019-101.pdf") + "'"),
        AllOf(HasSubstr("\"01 - "), HasSubstr("\"11A - "), HasSubstr("\"17 - ")));
    EXPECT_THAT(apoio::SaidaDe("pdfinfo '" + Saida("250114377019-101.pdf") + "'"),
                HasSubstr("DRQ 101 – 07/2003 – Metalúrgica Serra Dourada S.A.\n"));
}

TEST_F(Lote, OneWorkbookPerDeclarationNamesTheReportsOfItsSheets) {
    EXPECT_THAT(RodarLote("--unico --formato xlsx" + DoPrimeiro), Termina(0));
    EXPECT_THAT(Arquivos(Saida()), SizeIs(4));
    EXPECT_THAT(
        apoio::SaidaDe("python3 -c \"import sys, zipfile; print(zipfile.ZipFile(sys.argv[1])"
                       ".read('xl/workbook.xml').decode())\" '" +
                       Saida("250114377019-101.xlsx") + "'"),
        AllOf(HasSubstr("\"01 Cadastro do Contribuinte"),
              HasSubstr("\"17 Relatório de Pagamentos\""),
              HasSubstr("\"17 Relatório de Pagamentos (2)\"")));
}

// How a batch ends in which one report of six fails, and what a second run makes of it.
class LoteComFalha : public Lote, public testing::WithParamInterface<bool> {};

TEST_P(LoteComFalha, StandsInTheSummaryStopsNothingAndIsAllThatIsTriedAgain) {
    const bool unico = GetParam();
    const std::string chamada =
        "--relatorios 10,17" + DoPrimeiro + (unico ? " --unico" : " --trabalhos=1");
    Executar("update tblDRQ set SaldoCredAntDig = null where NroDRQ = 101");
    const Execucao e = RodarLote(chamada);
    EXPECT_THAT(e, Termina(1, HasSubstr("erro 94: declaração 101, relatório 10: ")));
    EXPECT_THAT(e.saida, HasSubstr("1 falha (veja resumo.csv)"));
    EXPECT_THAT(apoio::BytesDe(Saida("resumo.csv")),
                testing::ContainsRegex("\n250114377019;101;07/2003;10;;0;0;0;94;[^;]+;;;;\r\n"));
    const auto antes = Datas();
    EXPECT_THAT(antes, SizeIs(unico ? 3 : 5));
    Executar("update tblDRQ set SaldoCredAntDig = 0 where NroDRQ = 101");
    const Execucao segunda = RodarLote(chamada + " --retomar");
    EXPECT_THAT(segunda, Termina(0));
    EXPECT_THAT(segunda.saida,
                HasSubstr(unico ? ": 1 arquivo gravado, " : ": 2 arquivos gravados, "));
    for (const auto& [chave, linha] : Resumo()) {
        EXPECT_EQ(linha.erro, 0);
    }
    EXPECT_THAT(Datas(), SizeIs(unico ? 3 : 6));
    EXPECT_THAT(Refeitos(antes), Each(HasSubstr("-101")));
    if (unico) {
        EXPECT_GT(Resumo().at({101, "todos"}).paginas, 2U) << "both reports are in it";
    }
}

INSTANTIATE_TEST_SUITE_P(CadaUmEUnico, LoteComFalha, testing::Bool());

TEST_F(Lote, DeclarationsWithoutATaxpayerAreToldNotPrintedEmpty) {
    Executar(
        "update tblDRQ set IE = null where NroDRQ = 101;"
        "update tblDRQ set IE = 'a/b;\"..' where NroDRQ = 102;");
    EXPECT_THAT(
        RodarLote("--relatorios 01 --de 07/2003 --ate 08/2003"),
        Termina(1, AllOf(HasSubstr("erro 94: declaração 101: "),
                         HasSubstr("aviso: declaração 102: o contribuinte a/b;\".. não existe"))));
    EXPECT_THAT(Arquivos(Saida()),
                ElementsAre("a_2Fb_3B_22..-102/01-RelatorioCadastro.pdf", "resumo.csv"));
    EXPECT_THAT(apoio::BytesDe(Saida("resumo.csv")),
                HasSubstr("\r\n\"a/b;\"\"..\";102;08/2003;01;a_2Fb_3B_22..-102/01-Rel"));
    EXPECT_EQ(RodarLote("--relatorios 01 --de 07/2003 --retomar").situacao, 1);
    const std::string resumo = apoio::BytesDe(Saida("resumo.csv"));
    const std::size_t falha = resumo.find(";101;07/2003;todos;");
    EXPECT_NE(falha, std::string::npos);
    EXPECT_EQ(falha, resumo.rfind(";101;07/2003;todos;")) << "once";
}

TEST_F(Lote, ADatabaseThatDoesNotSayWhoseTheDeclarationsAreNeedsATaxpayer) {
    Executar("drop index idxtblDRQIE; alter table tblDRQ drop column IE;");
    EXPECT_THAT(RodarLote("--relatorios 01"), Termina(2, HasSubstr("--ie")));
    EXPECT_THAT(RodarLote("--relatorios 01 --ie 250339012558"), Termina(0));
    EXPECT_THAT(Arquivos(Saida()), SizeIs(11));
    EXPECT_THAT(Arquivos(Saida()), Contains("250339012558-101/01-RelatorioCadastro.pdf"));
}

TEST_F(Lote, PicturesAndJsonGoThroughTheSameFolders) {
    const std::string chamada = "--relatorios 17" + DoPrimeiro + " --formato ";
    EXPECT_THAT(RodarLote(chamada + "png --dpi 30"), Termina(0));
    EXPECT_EQ(Resumo().at({101, "17"}).arquivo, "250114377019-101/17-RelatorioPagamentos-001.png");
    // Another format in the same folder is another file.
    EXPECT_THAT(RodarLote(chamada + "json --retomar"), Termina(0));
    EXPECT_THAT(Arquivos(Saida()),
                AllOf(Contains("250114377019-101/17-RelatorioPagamentos-002.png"),
                      Contains("250114377019-101/17-RelatorioPagamentos.json")));
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

}  // namespace
}  // namespace tarvo::host
