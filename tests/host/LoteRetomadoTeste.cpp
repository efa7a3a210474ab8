// SPDX-License-Identifier: MIT
#include <fstream>

#include "tests/host/LoteDeTeste.h"

namespace tarvo::host {
namespace {

// What a second run makes again of a finished batch of the reports 02 and 17 of one taxpayer, and
// what it says.
class LoteRetomado : public ComLote {
  protected:
    LoteRetomado() { EXPECT_THAT(RodarLote(chamada), Termina(0)); }
    // The files that are others after another run.
    std::vector<std::string> Refeitos() {
        const auto antes = Datas();
        ultima = RodarLote(chamada);
        EXPECT_EQ(ultima.situacao, 0) << ultima.erros;
        EXPECT_THAT(Resumo(), SizeIs(6)) << "each file once";
        return ComLote::Refeitos(antes);
    }

    const std::string chamada = "--relatorios 02,17 --retomar" + DoPrimeiro;
    Execucao ultima;
};

TEST_F(LoteRetomado, OneCorrectionMakesOneDeclarationAgain) {
    EXPECT_THAT(Refeitos(), IsEmpty());
    Executar("update tblPagamento set Valor = Valor + 1 where NroDRQ = 103");
    EXPECT_THAT(Refeitos(), ElementsAre("250114377019-103/02-RelatorioResumoCFOPsEnt.pdf",
                                        "250114377019-103/17-RelatorioPagamentos.pdf"));
    EXPECT_THAT(ultima.saida, HasSubstr("refeitas, porque os dados mudaram: 250114377019-103\n"));
    // A row that an entry of the declaration has twice.
    Executar(
        "insert into tblRecibosCredito select * from tblRecibosCredito where Código in "
        "(select Código from tblOcorrências where NroDRQ = 101) limit 1");
    EXPECT_THAT(Refeitos(), AllOf(SizeIs(2), Contains(StartsWith("250114377019-101/"))));
    Executar("update tblEstados set Estado = 'X'");
    EXPECT_THAT(Refeitos(), SizeIs(6));
    EXPECT_THAT(ultima.erros, HasSubstr("têm em comum"));
}

TEST_F(LoteRetomado, AnotherMonthMakesAgainTheReportsThatAskForIt) {
    refAtual = "07/2001";
    EXPECT_THAT(Refeitos(), AllOf(SizeIs(3), Each(HasSubstr("/02-"))));
    EXPECT_THAT(ultima.saida, HasSubstr("refeitas, porque o mês de referência atual é outro: "
                                        "250114377019-101, 250114377019-102, "));
    EXPECT_THAT(Refeitos(), IsEmpty());
}

TEST_F(LoteRetomado, OtherOptionsMakeTheFilesAgainThatTheyChange) {
    const struct {
        std::string opcoes;
        const char* valor;
        const char* outro;
    } casos[] = {{"--relatorios 17 --formato png --dpi ", "30", "40"},
                 {"--relatorios 17 ", "--sem-estrutura", "--formato=pdf"},
                 {"--unico --relatorios ", "01,17", "01,16,17"}};
    for (const auto& [opcoes, valor, outro] : casos) {
        const auto rodar = [&](const char* qual) {
            return RodarLote(opcoes + qual + " --retomar" + DoPrimeiro).saida;
        };
        EXPECT_THAT(rodar(valor), HasSubstr(": 3 arquivos gravados\n"));
        EXPECT_THAT(rodar(valor), HasSubstr(": 0 arquivos gravados, 3 já prontos\n"));
        EXPECT_THAT(rodar(outro), AllOf(HasSubstr(": 3 arquivos gravados\n"),
                                        HasSubstr("porque as opções são outras: ")));
    }
}

TEST_F(LoteRetomado, TheSameDataElsewhereIsTheSame) {
    fs::copy_file(Banco(), pasta / "cópia.tarvo");
    fs::rename(Banco(), pasta / "antigo");
    fs::rename(pasta / "cópia.tarvo", Banco());
    EXPECT_THAT(Refeitos(), IsEmpty());
}

TEST_F(LoteRetomado, AFileThatIsNotWhatItWasIsMadeAgain) {
    const std::string arquivo = "250114377019-101/17-RelatorioPagamentos.pdf";
    std::string bytes = apoio::BytesDe(Saida(arquivo));
    bytes[bytes.size() / 2] ^= 1;
    std::ofstream(Saida(arquivo), std::ios::binary) << bytes;
    EXPECT_THAT(Refeitos(), ElementsAre(arquivo));
    EXPECT_THAT(ultima.saida, HasSubstr("porque o arquivo não é mais o que era: "));
}

// Codes without their zero, other line ends, lines of its own, one without its end.
TEST_F(LoteRetomado, ASummaryThatASpreadsheetSavedIsReadAndItsOwnLinesStay) {
    std::string resumo = apoio::BytesDe(Saida("resumo.csv"));
    for (const auto& [de, para] : {std::pair{";02;", ";2;"}, {"\r\n", "\n"}}) {
        for (std::size_t i = 0; (i = resumo.find(de, i)) != std::string::npos; ++i) {
            resumo.replace(i, std::string_view(de).size(), para);
        }
    }
    std::ofstream(Saida("resumo.csv"), std::ios::binary)
        << resumo << "\"nota do\nusuário\";;\n250114377019;101;;99;nada.pdf;1;1;0;0;;;;;fim";
    EXPECT_THAT(RodarLote(chamada), Termina(0));
    resumo = apoio::BytesDe(Saida("resumo.csv"));
    EXPECT_THAT(resumo, AllOf(HasSubstr("\"nota do\nusuário\";;\n"), HasSubstr("nada.pdf"),
                              Not(HasSubstr("fim2501"))));
}

TEST_F(LoteRetomado, ASummaryOfAnEarlierVersionIsRefused) {
    std::ofstream(Saida("resumo.csv"), std::ios::binary)
        << "\xEF\xBB\xBFinscrição;declaração;referência;relatório;arquivo;bytes;páginas;cortados;"
           "erro;descrição\r\n";
    const auto antes = apoio::BytesDe(Saida("resumo.csv"));
    EXPECT_THAT(RodarLote(chamada), Termina(1, AllOf(StartsWith("erro 5: "), HasSubstr("1.0"))));
    EXPECT_EQ(apoio::BytesDe(Saida("resumo.csv")), antes);
}

}  // namespace
}  // namespace tarvo::host
