// SPDX-License-Identifier: MIT
#include <sys/resource.h>

#include <csignal>
#include <cstdlib>
#include <sstream>

#include "document/DocumentoRelatorio.h"
#include "output/tables/PlanilhaXLSX.h"
#include "output/tables/TabelasCSV.h"
#include "tests/output/tables/LeituraDeTabelas.h"
#include "tests/support/Apoio.h"

namespace tarvo {
namespace {

using apoio::LinhaLida;
using apoio::TabelaLida;
using testing::ElementsAre;

class Tabelas : public testing::Test {
  protected:
    Tabelas() {
        ::setenv("SOURCE_DATE_EPOCH", "1000000000", 1);  // 09/09/2001
        doc.Iniciar();
        doc.DefinirTituloResumido("Relatório de Teste");
    }
    void Texto(std::string_view texto) {
        doc.EscreverTexto(0, 0, 9, 1, texto, 0, 0, "Arial", 8, false, false, false, 0);
    }
    void Elemento(const tarvo::Elemento& elemento, std::string_view texto) {
        const Trecho trecho(doc, elemento);
        Texto(texto);
    }
    // A label and a value in one element.
    void Caixa(const tarvo::Elemento& elemento, std::string_view rotulo, std::string_view valor) {
        const Trecho trecho(doc, elemento);
        Elemento({.tipo = TipoElemento::Rotulo}, rotulo);
        Elemento({.tipo = TipoElemento::ValorDeCampo, .natureza = elemento.natureza}, valor);
    }
    void Linha(FuncaoDaLinha funcao,
               const std::vector<std::pair<tarvo::Elemento, std::string>>& celulas) {
        const Trecho linha(doc, LinhaDe(funcao));
        for (const auto& [elemento, texto] : celulas) {
            Elemento(elemento, texto);
        }
    }

    DocumentoRelatorio doc;
};

constexpr tarvo::Elemento ComTexto = CelulaDe(Natureza::Texto);
constexpr tarvo::Elemento Dia = CelulaDe(Natureza::Data);
constexpr tarvo::Elemento Valor = CelulaDe(Natureza::Quantia);

TEST_F(Tabelas, EverythingThatIsReadStandsOnceInTheReadersOrder) {
    Elemento({.tipo = TipoElemento::Titulo}, "Título");
    Elemento({.tipo = TipoElemento::Secao}, "Contribuinte");
    Caixa({.tipo = TipoElemento::Campo, .natureza = Natureza::Codigo}, "IE", "0250");
    Texto("Página %%p de %%P, 100 %%D");
    Elemento({.tipo = TipoElemento::Secao}, "Entradas");
    {
        const Trecho tabela(doc, {.tipo = TipoElemento::Tabela});
        Linha(FuncaoDaLinha::Titulos, {{TituloDeColuna(1, 2), "Data"},
                                       {TituloDeColuna(2), "Base de cálculo"},
                                       {TituloDeColuna(1, 2), "UF"}});
        Linha(FuncaoDaLinha::Titulos,
              {{TituloDeColuna(), "Contribuinte"}, {TituloDeColuna(), "Não"}});
        {
            const Trecho linha(doc, LinhaDe(FuncaoDaLinha::TituloDeGrupo));
            Caixa(TituloDeLinha(Natureza::Codigo, 4), "CFOP", "6.109");
        }
        Linha(FuncaoDaLinha::Dados,
              {{Dia, "31/07/2003"}, {Valor, "1.234,56"}, {Valor, "-1,00"}, {ComTexto, "PA"}});
        doc.NovaPagina();
        {
            const Trecho decoracao(doc, Estrutura::Decoracao);
            Texto("Título");
        }
        Linha(FuncaoDaLinha::Dados,
              {{Dia, ""}, {Valor, "922.337.203.685.477,58"}, {CelulaDe(Natureza::Texto, 2), "x"}});
        {
            const Trecho linha(doc, LinhaDe(FuncaoDaLinha::Subtotal));
            Caixa(CelulaDe(Natureza::Quantia, 2), "Subtotal", "1.235,56");
            Elemento(CelulaDe(Natureza::Texto), "fim %%p");
        }
    }
    Elemento({.tipo = TipoElemento::Paragrafo}, "Nada\r\nmais;");
    const std::string csv = apoio::ComoCSV(doc.Registrado());
    EXPECT_EQ(csv,
              "\uFEFFCampo;Valor\r\n"
              "Título;\r\n"
              "Contribuinte;\r\n"
              "IE;0250\r\n"
              ";Página 1 de 2, 100 09/09/2001\r\n"
              "\r\n"
              "Data;Base de cálculo – Contribuinte;Base de cálculo – Não;UF\r\n"
              "Entradas;;;\r\n"
              "CFOP: 6.109;;;\r\n"
              "31/07/2003;1234,56;-1,00;PA\r\n"
              ";922337203685477,58;x;\r\n"
              "Subtotal;1235,56;fim 2;\r\n"
              "\r\n"
              "Campo;Valor\r\n"
              ";\"Nada\nmais;\"\r\n");
    const auto xlsx = apoio::LerXLSX(apoio::ComoXLSX(doc.Registrado()));
    ASSERT_EQ(xlsx.size(), 3U);
    EXPECT_THAT(xlsx[0][0], ElementsAre("Contribuinte", "2", "A2"));
    EXPECT_THAT(xlsx[1], ElementsAre(LinhaLida{"Entradas", "4", "A2"},
                                     LinhaLida{"s Data", "s Base de cálculo – Contribuinte",
                                               "s Base de cálculo – Não", "s UF"},
                                     LinhaLida{"s Entradas", "", "", ""},
                                     LinhaLida{"s CFOP: 6.109", "", "", ""},
                                     LinhaLida{"d 31/07/2003", "n 1234,56", "n -1,00", "s PA"},
                                     // More digits than a spreadsheet's numbers hold.
                                     LinhaLida{"", "s 922.337.203.685.477,58", "s x", ""},
                                     LinhaLida{"s Subtotal", "n 1235,56", "s fim 2", ""}));
    EXPECT_THAT(xlsx[2][2], ElementsAre("", "s Nada\nmais;"));
}

TEST_F(Tabelas, ATextComesBackWholeAndNeverRunsAsAFormula) {
    const std::vector<std::pair<std::string, std::string>> textos = {
        {"=1+1", "'=1+1"},
        {"+55 11", "'+55 11"},
        {"-x", "'-x"},
        {"@SUM(A1)", "'@SUM(A1)"},
        {" \n=1 ", "'\n=1"},
        {"＝1+1", "'＝1+1"},
        {"-1,00", "-1,00"},
        {"-1.234,56", "-1.234,56"},
        {"a\"b;c", "a\"b;c"},
        {"a\tb\x01\x7F\uFFFF\xC3", "a b\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"_x0041_", "_x0041_"},
        {"\U0001F600 <&>", "\U0001F600 <&>"},
        {std::string(40'000, 'a') + std::string(30'000, 'b'), ""},
    };
    {
        const Trecho tabela(doc, {.tipo = TipoElemento::Tabela});
        for (const auto& [texto, escrito] : textos) {
            Linha(FuncaoDaLinha::Dados, {{ComTexto, texto}});
        }
    }
    const auto csv = apoio::LerCSV(apoio::ComoCSV(doc.Registrado()));
    const auto xlsx = apoio::LerXLSX(apoio::ComoXLSX(doc.Registrado()));
    ASSERT_TRUE(csv.size() == 1 && csv[0].size() == textos.size());
    ASSERT_TRUE(xlsx.size() == 1 && xlsx[0].size() > textos.size());
    EXPECT_THAT(xlsx[0][0], ElementsAre("Relatório de Teste", "0", "None"));
    for (std::size_t i = 0; i + 1 < textos.size(); ++i) {
        const auto& [texto, escrito] = textos[i];
        EXPECT_EQ(csv[0][i][0], escrito);
        EXPECT_EQ(xlsx[0][i + 1][0], "s " + escrito.substr(escrito[0] == '\'' ? 1 : 0));
    }
    // Longer than a spreadsheet's cell: goes on in the rows below.
    EXPECT_EQ(csv[0].back()[0], textos.back().first);
    std::string longo;
    for (std::size_t i = textos.size(); i < xlsx[0].size(); ++i) {
        longo += xlsx[0][i][0].substr(2);
    }
    EXPECT_EQ(longo, textos.back().first);
}

TEST_F(Tabelas, SheetsHaveNamesThatSpreadsheetsTake) {
    const std::string longo = "Saídas de Mercadorias, Bens e/ou Prestações";
    for (const auto& nome : {longo, longo, std::string("'[a]:*?'"), std::string("história"),
                             std::string("HISTÓRIA"), std::string("History"), std::string("'")}) {
        Elemento({.tipo = TipoElemento::Secao}, nome);
        const Trecho tabela(doc, {.tipo = TipoElemento::Tabela});
        Linha(FuncaoDaLinha::Dados, {{ComTexto, "x"}});
    }
    std::vector<std::string> nomes;
    for (const auto& folha : apoio::LerXLSX(apoio::ComoXLSX(doc.Registrado()))) {
        nomes.push_back(folha[0][0]);
    }
    EXPECT_THAT(nomes,
                ElementsAre("Saídas de Mercadorias, Bens e-o", "Saídas de Mercadorias, Bens (2)",
                            "-a----", "história", "HISTÓRIA (2)", "History (2)", "Tabela"));
}

TEST_F(Tabelas, AWorkbookIsTheSameBytesTwiceAndNeverWithoutASheet) {
    Caixa({.tipo = TipoElemento::Campo, .natureza = Natureza::Quantia}, "Valor", "1.234,56");
    EXPECT_EQ(apoio::ComoXLSX(doc.Registrado()), apoio::ComoXLSX(doc.Registrado()));
    doc.Iniciar();
    EXPECT_THAT(apoio::LerXLSX(apoio::ComoXLSX(doc.Registrado())),
                ElementsAre(TabelaLida{{"Tabela", "0", "None"}}));
    EXPECT_EQ(apoio::ComoCSV(doc.Registrado()), "\uFEFF");
}

TEST_F(Tabelas, AWorkbookOfWhichAPartCouldNotBeWrittenWholeIsAnError) {
    {
        const Trecho tabela(doc, {.tipo = TipoElemento::Tabela});
        for (int i = 0; i < 4000; ++i) {
            Linha(FuncaoDaLinha::Dados, {{Valor, "1,00"}});
        }
    }
    // A temporary file ends here, the workbook itself would be smaller.
    rlimit antes{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &antes), 0);
    const rlimit pouco{.rlim_cur = 60'000, .rlim_max = antes.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &pouco);
    const Erro erro = apoio::ErroDe([&] { apoio::ComoXLSX(doc.Registrado()); });
    setrlimit(RLIMIT_FSIZE, &antes);
    EXPECT_EQ(erro.Numero(), NumeroErro::ErroDispositivo);
    EXPECT_THAT(erro.Descricao(), testing::HasSubstr("TMPDIR"));
    EXPECT_LT(apoio::ComoXLSX(doc.Registrado()).size(), 60'000U);
}

}  // namespace
}  // namespace tarvo
