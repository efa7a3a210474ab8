// SPDX-License-Identifier: MIT
#include <sys/stat.h>

#include <csignal>
#include <fstream>

#include "tests/host/LoteDeTeste.h"

namespace tarvo::host {
namespace {

// What is not the batch's own, and what stands in its way.
class LoteAlheio : public ComLote {
  protected:
    const std::string chamada = "--relatorios 17" + DoPrimeiro;
    const std::string retomada = chamada + " --retomar";
    const std::string arquivo = "250114377019-101/17-RelatorioPagamentos.pdf";
};

TEST_F(LoteAlheio, ResumingInAFolderWithoutABatchRemovesNothing) {
    fs::create_directories(Saida("trabalho.tmp"));
    fs::create_directories(Saida(".tarvo-0123456789abcdef"));
    for (const char* alheio : {"trabalho.tmp/x", ".tarvo-1-0.tmp", ".tarvo-0123456789abcdef/x"}) {
        std::ofstream(Saida(alheio)) << "fica";
    }
    EXPECT_THAT(RodarLote(retomada), Termina(0));
    EXPECT_THAT(RodarLote(retomada), Termina(0));
    EXPECT_THAT(Arquivos(Saida()), SizeIs(4 + 3));
}

TEST_F(LoteAlheio, WhatAKilledBatchLeftInItsOwnFolderGoes) {
    EXPECT_THAT(RodarLote(chamada), Termina(0));
    const std::string resumo = apoio::BytesDe(Saida("resumo.csv"));
    const fs::path propria = Saida(resumo.substr(resumo.find(".tarvo-"), 23));
    EXPECT_FALSE(fs::exists(propria));
    fs::create_directories(propria / "outra");
    std::ofstream(propria / "outra/novo") << "%PDF";
    EXPECT_THAT(RodarLote(retomada), Termina(0));
    EXPECT_FALSE(fs::exists(propria));
}

TEST_F(LoteAlheio, LinksOfTheFolderLeadNowhere) {
    fs::create_directories(pasta / "alheia");
    fs::create_directory_symlink(pasta / "alheia", pasta / "saida");
    fs::create_directories(Saida("250114377019-102"));
    fs::create_symlink(Banco(), Saida("250114377019-102/17-RelatorioPagamentos.pdf"));
    fs::create_directories(pasta / "outra");
    fs::create_directory_symlink(pasta / "outra", Saida("250114377019-103"));
    const std::string antes = apoio::BytesDe(Banco());
    EXPECT_THAT(RodarLote(chamada),
                Termina(1, StartsWith("erro 75: declaração 103, relatório 17: ")));
    EXPECT_EQ(apoio::BytesDe(Banco()), antes);
    EXPECT_THAT(apoio::BytesDe(Saida("250114377019-102/17-RelatorioPagamentos.pdf")),
                StartsWith("%PDF"));
    EXPECT_TRUE(fs::is_empty(pasta / "outra"));
}

TEST_F(LoteAlheio, ADatabaseOrPipeOfThatNameFailsItsReportAlone) {
    fs::create_directories(Saida("250114377019-101"));
    fs::create_hard_link(Banco(), Saida(arquivo));
    fs::create_directories(Saida("250114377019-102"));
    ASSERT_EQ(::mkfifo(Saida("250114377019-102/17-RelatorioPagamentos.pdf").c_str(), 0666), 0);
    EXPECT_THAT(RodarLote(chamada), Termina(1, AllOf(HasSubstr("erro 75: declaração 101, "),
                                                     HasSubstr("erro 75: declaração 102, "))));
    EXPECT_EQ(Resumo().at({103, "17"}).erro, 0);
    EXPECT_THAT(apoio::BytesDe(Saida(arquivo)), StartsWith("SQLite format 3"));
}

TEST_F(LoteAlheio, NoTwoDeclarationsShareAFolder) {
    Executar(
        "insert into tblDRQ (NroDRQ, IE) values (2, 'a-'), (-2, 'a'), (3, '.x'), (4, '-x'), "
        "(5, 'a/b'), (6, '_'), (7, printf('%.100c', 'y'))");
    EXPECT_THAT(RodarLote("--relatorios 01"), Termina(0));
    std::vector<std::string> nomes;
    for (const auto& item : fs::directory_iterator(Saida())) {
        nomes.push_back(item.path().filename());
    }
    EXPECT_THAT(nomes,
                testing::IsSupersetOf({"a--2", "a-_2", "_2Ex-3", "_2Dx-4", "a_2Fb-5", "_5F-6"}));
    EXPECT_THAT(nomes, SizeIs(10 + 7 + 1));
}

// As long as the first runs, and no longer, however it ends.
TEST_F(LoteAlheio, ASecondBatchInTheSameFolderIsRefused) {
    Multiplicar();
    {
        Programa primeira(Chamada(""));
        Esperar(primeira, [&] { return !Resumo().empty(); });
        for (const auto& outra : {chamada, retomada}) {
            EXPECT_THAT(RodarLote(outra),
                        Termina(1, AllOf(StartsWith("erro 20006: "), HasSubstr("outro lote"))));
        }
        primeira.Sinalizar(SIGKILL);
        EXPECT_EQ(primeira.Esperar().situacao, 128 + SIGKILL) << "it had not ended yet";
    }
    EXPECT_THAT(RodarLote(retomada), Termina(0));
}

TEST_F(LoteAlheio, AReaderThatGoesAwayEndsTheOutputNotTheBatch) {
    EXPECT_THAT(apoio::SaidaDe("{ " TARVO_PROGRAMA " " + Chamada("--relatorios 01") +
                               "; echo \"fim $?\" >&2; } | head -c 1"),
                HasSubstr("fim 0\n"));
    EXPECT_THAT(Resumo(), SizeIs(10));
}

TEST_F(LoteAlheio, AMissingFontEndsTheBatchBeforeItMakesAnything) {
    std::ofstream(pasta / "fonts.conf") << "<fontconfig/>";
    const Execucao e =
        RodarLote(chamada, "FONTCONFIG_FILE=" + (pasta / "fonts.conf").string() + " exec");
    EXPECT_THAT(e, Termina(1, AllOf(HasSubstr("erro 20005: "), HasSubstr("fonts-liberation"))));
    EXPECT_THAT(e.erros, Not(HasSubstr("declaração 101")));
    EXPECT_THAT(Datas(), IsEmpty());
}

}  // namespace
}  // namespace tarvo::host
