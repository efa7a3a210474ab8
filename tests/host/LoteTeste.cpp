#include "tests/host/LoteDeTeste.h"

namespace tarvo::host {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

class Lote : public ComLote {};

TEST_F(Lote, WritesEveryDeclarationIntoItsFolderAndNeverTheDatabase) {
    const std::string antes = Conteudo(Banco());
    const Execucao e = RodarLote({"--trabalhos", "3"});
    EXPECT_EQ(e.situacao, 0) << e.erros;
    EXPECT_THAT(e.saida, AllOf(HasSubstr("250114377019-103  17 arquivos\n"),
                               HasSubstr("10 declarações: 178 arquivos gravados\n")));
    const auto arquivos = Arquivos(Saida());
    EXPECT_THAT(arquivos, SizeIs(179)) << "18 reports of 8 declarations, 17 of 2, the summary";
    EXPECT_THAT(arquivos, Contains("250114377019-101/10-RelatorioApuracaoOpProp.pdf"));
    EXPECT_THAT(arquivos, Not(Contains("250114377019-103/15-RelatorioDetResSubstitut.pdf")));
    const auto resumo = Resumo();
    EXPECT_THAT(resumo, SizeIs(178));
    const std::string arquivo = "250114377019-101/10-RelatorioApuracaoOpProp.pdf";
    EXPECT_THAT(
        resumo.at({101, "10"}),
        ElementsAre("250114377019", "101", "07/2003", "10", arquivo,
                    std::to_string(Conteudo(Saida() + "/" + arquivo).size()), "2", "0", "0", ""));
    ConferirInteiros();
    EXPECT_EQ(Conteudo(Banco()), antes);
    EXPECT_THAT(Arquivos(pasta.Caminho()), Not(Contains(HasSubstr("exemplo.tarvo-"))));
}

TEST_F(Lote, ReadsWhatAnotherProgramHasNotMovedIntoTheFileYetAndLeavesItThere) {
    const std::string wal = Banco() + "-wal";
    {
        const OutroPrograma aberto(
            Banco(), "UPDATE tblContribuinte SET RazãoSocial = 'Nova Ltda.' WHERE IE LIKE '2501%'");
        const std::string antes = Conteudo(Banco());
        const std::string walAntes = Conteudo(wal);
        ASSERT_THAT(walAntes, HasSubstr("Nova Ltda."));
        EXPECT_EQ(RodarLote({"--relatorios", "01", "--formato", "json"}).situacao, 0);
        EXPECT_THAT(Conteudo(Saida() + "/250114377019-101/01-RelatorioCadastro.json"),
                    HasSubstr("Nova Ltda."));
        EXPECT_EQ(Conteudo(Banco()), antes);
        EXPECT_EQ(Conteudo(wal), walAntes);
    }
    // That program was killed: nobody else will keep the -wal for it.
    const std::string antes = Conteudo(Banco());
    const std::string walAntes = Conteudo(wal);
    EXPECT_EQ(RodarLote({"--relatorios", "01", "--retomar"}).situacao, 0);
    EXPECT_EQ(Conteudo(Banco()), antes);
    EXPECT_EQ(Conteudo(wal), walAntes);
}

TEST_F(Lote, FiltersByTaxpayerAndMonths) {
    EXPECT_EQ(RodarLote({"--ie", "250114377019", "--de", "07/2003", "--ate", "07/2003",
                         "--relatorios", "17"})
                  .situacao,
              0);
    EXPECT_THAT(Arquivos(Saida()),
                ElementsAre("250114377019-101/17-RelatorioPagamentos.pdf", "resumo.csv"));
    const auto numeros = [&](const std::vector<std::string>& filtro) {
        std::filesystem::remove_all(Saida());
        std::vector<std::string> outros{"--relatorios", "01"};
        outros.insert(outros.end(), filtro.begin(), filtro.end());
        EXPECT_EQ(RodarLote(outros).situacao, 0);
        std::vector<int> lista;
        for (const auto& [chave, linha] : Resumo()) {
            lista.push_back(chave.first);
        }
        return lista;
    };
    Executar("update tblDRQ set Ref1 = null where NroDRQ = 102");
    EXPECT_THAT(numeros({"--ate", "12/2001"}), ElementsAre(103, 201));
    EXPECT_THAT(numeros({"--de", "07/2003"}), ElementsAre(101, 601));
    EXPECT_THAT(numeros({"--de", "12/2001", "--ate", "12/2002"}), ElementsAre(201, 301));
    EXPECT_THAT(numeros({"--ie", "250114377019"}), ElementsAre(101, 102, 103));
    EXPECT_THAT(numeros({"--ie", "1"}), IsEmpty());
}

TEST_F(Lote, OneFilePerDeclarationHasAnOutlineOfItsReports) {
    EXPECT_EQ(RodarLote({"--unico", "--ie", "250114377019"}).situacao, 0);
    EXPECT_THAT(Arquivos(Saida()), ElementsAre("250114377019-101.pdf", "250114377019-102.pdf",
                                               "250114377019-103.pdf", "resumo.csv"));
    ConferirInteiros();
    EXPECT_EQ(Resumo().at({101, "todos"})[6], "46");
    const auto json = Conteudo(Saida() + "/250114377019-101.pdf");
    const std::string pdf = Saida() + "/250114377019-101.pdf";
    ASSERT_EQ(std::system(
                  ("qpdf --json --json-key=outlines '" + pdf + "' > '" + Saida() + "/outline' 2>&1")
                      .c_str()),
              0);
    const std::string marcadores = Conteudo(Saida() + "/outline");
    for (const char* titulo : {"\"01 - ", "\"11A - ", "\"17 - "}) {
        EXPECT_THAT(marcadores, HasSubstr(titulo));
    }
}

TEST_F(Lote, AFailingReportStandsInTheSummaryAndStopsNothing) {
    Executar("update tblDRQ set SaldoCredAntDig = null where NroDRQ = 101");
    for (const char* modo : {"--retomar", "--unico"}) {
        SCOPED_TRACE(modo);
        std::filesystem::remove_all(Saida());
        const std::vector<std::string> chamada{"--relatorios", "10,17", "--ie", "250114377019",
                                               modo};
        const Execucao e = RodarLote(chamada);
        EXPECT_EQ(e.situacao, 1);
        EXPECT_THAT(e.erros, HasSubstr("erro 94: declaração 101, relatório 10: "));
        EXPECT_THAT(e.saida, HasSubstr("1 falha (veja resumo.csv)"));
        EXPECT_THAT(Resumo().at({101, "10"}), ElementsAre("250114377019", "101", "07/2003", "10",
                                                          "", "0", "0", "0", "94", Not(IsEmpty())));
        const bool unico = std::string(modo) == "--unico";
        EXPECT_THAT(Arquivos(Saida()), SizeIs(unico ? 4 : 6));
        const std::string outra =
            Saida() +
            (unico ? "/250114377019-102.pdf" : "/250114377019-101/17-RelatorioPagamentos.pdf");
        const std::string antes = Identidade(outra);
        // What failed is tried again, and only that.
        Executar("update tblDRQ set SaldoCredAntDig = 0 where NroDRQ = 101");
        auto deNovo = chamada;
        deNovo.emplace_back(unico ? "--retomar" : "--trabalhos=1");
        const Execucao segunda = RodarLote(deNovo);
        EXPECT_EQ(segunda.situacao, 0) << segunda.erros;
        EXPECT_THAT(segunda.saida, HasSubstr(": 1 arquivo gravado, "));
        for (const auto& [chave, linha] : Resumo()) {
            EXPECT_EQ(linha[8], "0");
        }
        EXPECT_THAT(Arquivos(Saida()), SizeIs(unico ? 4 : 7));
        EXPECT_EQ(Identidade(outra), antes);
        if (unico) {
            EXPECT_GT(std::stoi(Resumo().at({101, "todos"})[6]), 2) << "both reports are in it";
        }
        Executar("update tblDRQ set SaldoCredAntDig = null where NroDRQ = 101");
    }
}

TEST_F(Lote, DeclarationsWithoutATaxpayerAreToldNotPrintedEmpty) {
    Executar(
        "update tblDRQ set IE = null where NroDRQ = 101;"
        "update tblDRQ set IE = 'a/b;\"..' where NroDRQ = 102;");
    const Execucao e = RodarLote({"--relatorios", "01", "--de", "07/2003", "--ate", "08/2003"});
    EXPECT_EQ(e.situacao, 1);
    EXPECT_THAT(e.erros, AllOf(HasSubstr("erro 94: declaração 101: "),
                               HasSubstr("aviso: o contribuinte a/b;\".. da declaração 102 não")));
    EXPECT_THAT(Arquivos(Saida()),
                ElementsAre("a_b__..-102/01-RelatorioCadastro.pdf", "resumo.csv"));
    EXPECT_THAT(Conteudo(Saida() + "/resumo.csv"),
                HasSubstr("\r\n\"a/b;\"\"..\";102;08/2003;01;a_b__..-102/01-Rel"));
}

TEST_F(Lote, ADatabaseThatDoesNotSayWhoseTheDeclarationsAreNeedsATaxpayer) {
    Executar("drop index idxtblDRQIE; alter table tblDRQ drop column IE;");
    const Execucao sem = RodarLote({"--relatorios", "01"});
    EXPECT_EQ(sem.situacao, 2);
    EXPECT_THAT(sem.erros, HasSubstr("--ie"));
    EXPECT_EQ(RodarLote({"--relatorios", "01", "--ie", "250339012558"}).situacao, 0);
    EXPECT_THAT(Arquivos(Saida()), SizeIs(11));
    EXPECT_THAT(Arquivos(Saida()), Contains("250339012558-101/01-RelatorioCadastro.pdf"));
}

TEST_F(Lote, PicturesAndJsonGoThroughTheSameFolders) {
    EXPECT_EQ(
        RodarLote({"--relatorios", "17", "--ie", "250114377019", "--formato", "png", "--dpi", "30"})
            .situacao,
        0);
    EXPECT_EQ(Resumo().at({101, "17"})[4], "250114377019-101/17-RelatorioPagamentos-001.png");
    // Another format in the same folder is another file.
    EXPECT_EQ(
        RodarLote({"--relatorios", "17", "--ie", "250114377019", "--formato", "json", "--retomar"})
            .situacao,
        0);
    EXPECT_THAT(Arquivos(Saida()),
                AllOf(Contains("250114377019-101/17-RelatorioPagamentos-002.png"),
                      Contains("250114377019-101/17-RelatorioPagamentos.json")));
}

TEST_F(Lote, ATerminalShowsOneLineWithAnEstimate) {
    auto chamada = Argumentos({"--relatorios", "17", "--ie", "250114377019", "--trabalhos", "1"});
    const std::string escrito = RodarNoTerminal(chamada);
    EXPECT_THAT(escrito, AllOf(HasSubstr("\r1/3 declarações, 33 %, faltam "),
                               HasSubstr("\r3/3 declarações, 100 %"),
                               HasSubstr("\033[K3 declarações: 3 arquivos gravados\r\n")));
    EXPECT_THAT(escrito, Not(HasSubstr("250114377019")));
}

}  // namespace
}  // namespace tarvo::host
