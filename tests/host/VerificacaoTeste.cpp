// SPDX-License-Identifier: MIT
#include "tests/host/Programa.h"

namespace tarvo::host {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class Verificacao : public ComExemplo {
  protected:
    Execucao Verificar(const std::string& outros) {
        return Rodar("verificar " + Banco() + " " + outros);
    }
    // Of declaration 103.
    Execucao Exportar(const std::string& outros, const std::string& formato = "json",
                      const std::string& IE = "250114377019") {
        return Rodar("exportar " + Banco() + " --drq 103 --formato " + formato + " --saida " +
                     Saida() + " --ie " + IE + " --relatorios " + outros);
    }
};

TEST_F(Verificacao, SaysWhatPagesLeaveOutAndEndsWithOneWhenThereIsSomething) {
    const Execucao limpa = Verificar("--drq 601");
    EXPECT_THAT(limpa, Termina(0, IsEmpty()));
    EXPECT_THAT(limpa.saida, IsEmpty());

    Executar("insert into tblPagamento (NroDRQ, Valor) values (777, 1)");
    const Execucao toda = Verificar("");
    EXPECT_THAT(toda, Termina(1, IsEmpty()));
    EXPECT_THAT(
        toda.saida,
        AllOf(HasSubstr("tblPagamento, 1 linha: linha de declaração que não existe (777)\n"),
              HasSubstr("IE 250339012558, DRQ 301: relatório 05, tblDetalhesInterUFs, 1 linha: ")));
    const Execucao json = Verificar("--drq 401 --json");
    EXPECT_EQ(json.situacao, 1);
    EXPECT_THAT(LinhasJSON(json.saida),
                Contains(nlohmann::json(
                    {{"ie", "250447719306"},
                     {"drq", 401},
                     {"relatorio", "15"},
                     {"tabela", "tblOcorrências"},
                     {"linhas", 1},
                     {"motivo",
                      "subitem cujos detalhes não somam o seu valor (007.01: 22.500,00 de "
                      "25.000,00)"}})));
    EXPECT_THAT(Verificar("--drq 9999").saida,
                HasSubstr("a declaração 9999 não existe neste banco"));
}

TEST_F(Verificacao, ExportingSaysTheSameAndEachDeclarationsMonthCanDecide) {
    const std::string outraTabela =
        "aviso: a DRQ 103 é de 11/2001, mas o resumo usa a tabela de CFOPs de 07/2003\n";
    EXPECT_THAT(Exportar("03 --ref-atual 07/2003"), Termina(0, HasSubstr(outraTabela)));
    for (const std::string palavra : {"declaração", "declaracao"}) {
        EXPECT_THAT(Exportar("03 --ref-atual " + palavra),
                    Termina(0, AllOf(HasSubstr("aviso: relatório 03, tblDetalhesCFOPs, 2 linhas: "),
                                     Not(HasSubstr("tabela de CFOPs de")))));
    }
    EXPECT_THAT(Rodar("ref-atual declaração").situacao, 2);
    const auto json = LinhasJSON(Exportar("01,15 --json", "json", "250226880140").saida);
    ASSERT_EQ(json.size(), 2U);
    EXPECT_EQ(json[1]["achados"][0]["motivo"],
              "a DRQ 103 é do contribuinte 250114377019, não de "
              "250226880140");
}

TEST_F(Verificacao, ARepeatedCutIsSaidOnceAndShort) {
    Executar(
        "update tblDRQ set Ref1 = '2001-11-01';"
        "update tblContribuinte set \"RazãoSocial\" = 'Nome\u2028' || hex(zeroblob(300))");
    EXPECT_THAT(
        Exportar("03 --ref-atual declaração", "pdf").erros,
        HasSubstr("03-RelatorioResumoCFOPsSai, páginas 1 a 3: o texto não coube e foi "
                  "cortado: \"Nome 0000000000000000000000000000000000000000000000000000000…\"\n"));
}

}  // namespace
}  // namespace tarvo::host
