// SPDX-License-Identifier: MIT
#include "data/CodigosDeErros.h"
#include "host/batch/LinhaResumo.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "tests/support/Apoio.h"

namespace tarvo::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

std::vector<std::string> Registros(const std::string& texto) {
    std::istringstream entrada(texto);
    LeitorDeRegistros leitor(entrada);
    std::vector<std::string> registros;
    for (std::string registro; leitor.Proximo(registro);) {
        EXPECT_EQ(texto.substr(leitor.Inicio(), leitor.Fim() - leitor.Inicio()), registro);
        registros.push_back(registro);
    }
    return registros;
}

TEST(LinhaResumo, EveryTextComesBackAndNoneRunsAsAFormula) {
    for (const std::string texto : {"250114377019", "a;b", "\"", "\"a\"\"b;", "=1+1", "+1", "-1",
                                    "@x", "\t=1", "'", "'=1", "=\"a\";b", "", "ção ''"}) {
        LinhaResumo linha;
        linha.IE = linha.descricao = texto;
        linha.NroDRQ = -7;
        const std::string escrita = Escrita(linha);
        EXPECT_THAT(Registros(escrita), ElementsAre(escrita));
        const auto lida = Lida(escrita);
        ASSERT_TRUE(lida) << escrita;
        EXPECT_EQ(lida->IE, texto);
        EXPECT_EQ(lida->descricao, texto);
        EXPECT_EQ(lida->NroDRQ, -7);
        const char primeiro = SepararCelulas(escrita).front().c_str()[0];
        EXPECT_EQ(std::string_view("=+-@\t").find(primeiro), std::string_view::npos) << escrita;
    }
    LinhaResumo linha;
    linha.descricao = "duas\r\nlinhas";
    EXPECT_EQ(Lida(Escrita(linha))->descricao, "duas  linhas");
}

TEST(LinhaResumo, ReadsWhatASpreadsheetMadeOfIt) {
    const auto lida = Lida("\"250114377019\";101;;1;\"p/a.pdf\";7;2;0;0;\"duas\nlinhas\";;;d;c\n");
    ASSERT_TRUE(lida);
    EXPECT_EQ(lida->relatorio, "1");
    EXPECT_EQ(lida->arquivo, "p/a.pdf");
    EXPECT_EQ(lida->descricao, "duas\nlinhas");
    for (const char* nenhuma :
         {"", ";;", "a;b;c;d;e;f;g;h;i;j;k;l;m;n\n", "a;1;c;d;e;1;1;1;99999999999;j;k;l;m;n\n",
          "a;1;c;d;e;1;1;1;1;j;k;l;m;n;o\n"}) {
        EXPECT_FALSE(Lida(nenhuma)) << nenhuma;
    }
    std::string cabecalho = Cabecalho();
    EXPECT_NO_THROW(ExigirCabecalho(cabecalho, "r"));
    cabecalho.replace(cabecalho.find("\r\n"), 2, "\n");
    EXPECT_NO_THROW(ExigirCabecalho(cabecalho.substr(3), "r"));
    for (const std::string& outro :
         {cabecalho.substr(0, cabecalho.find(";referência atual")), std::string("a;b\r\n")}) {
        EXPECT_THROW(ExigirCabecalho(outro, "r"), Erro) << outro;
    }
}

TEST(LeitorDeRegistros, QuotedLineBreaksBelongToTheirRecordAndAnOpenQuoteEndsWithItsLine) {
    EXPECT_THAT(Registros("a;\"b\n\"\"c\";d\r\ne\n\nf"),
                ElementsAre("a;\"b\n\"\"c\";d\r\n", "e\n", "\n", "f"));
    EXPECT_THAT(Registros("a;\"b\nc;\"d\ne\n"), ElementsAre("a;\"b\nc;\"d\n", "e\n"));
    EXPECT_THAT(Registros("a;b\"c\n\"d\ne\nf"), ElementsAre("a;b\"c\n", "\"d\n", "e\n", "f"));
    const std::string longa(200'000, 'x');
    EXPECT_THAT(Registros("\"a\n" + longa + "\nb\n"), ElementsAre("\"a\n", longa + "\n", "b\n"));
}

TEST(LeitorDeRegistros, AFileThatCannotBeReadIsNotTakenForItsEnd) {
    std::ifstream ilegivel("/proc/self/mem");
    LeitorDeRegistros leitor(ilegivel);
    std::string registro;
    EXPECT_EQ(apoio::NumeroDe([&] { leitor.Proximo(registro); }), NumeroErro::ErroDispositivo);
}

}  // namespace
}  // namespace tarvo::host
