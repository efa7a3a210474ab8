// SPDX-License-Identifier: MIT
#include "reports/RelatorioMIDAXB.h"

#include "tests/reports/PaginaEsperada.h"

namespace tarvo::apoio {
namespace {

using testing::ElementsAre;

constexpr double Corpo = 8.2;

class RelatorioMIDAXB : public testing::Test {
  protected:
    // (code, town, amount) in place of all entries of declaration 1.
    void Entradas(const std::string& valores) {
        banco_.Executar("insert into tblMIDAX (NroDRQ, CódMIDAX, Município, Valor) values " +
                        valores + ";");
    }
    void EntradasIguais(const std::string& codigo, int quantas) {
        banco_.Executar("delete from tblMIDAX;" +
                        Repetir(quantas,
                                "insert into tblMIDAX (NroDRQ, CódMIDAX, Município, Valor) select "
                                "1, '" +
                                    codigo + "', '10', 10000 from n"));
    }

    BancoDeTeste banco_{std::string(DuasDeclaracoes) + R"sql(
        insert into tblMunicípios (CódMunicípio, Município) values
            ('10', 'Óbidos'), ('11', 'Olinda'), ('12', 'OLINDA'), ('13', null);
        insert into tblCódigosMIDAX (Código, Descrição, Cabeçalho) values
            ('1.1', 'um', 'Valor adicionado por município.'), ('1.2', 'dois', 'Outro'),
            ('2.1', 'três', null), ('3.1', 'Produção rural', 'Demais códigos'),
            ('3.2', null, null);)sql"};
};

Lista Cabecalho(const std::string& titulo, const std::string& grupo) {
    return TopoEsperado() + Celula({0, 2.9, 17, 0.9}, {"M CM Arial 16b #808000", 0.1}, titulo) +
           Celula({0, 3.8, 17, 2.1}, TituloDeQuadro, grupo) + IdentificacaoEsperada(5.9);
}

Lista Metade(double x, double y, const std::string& rotulo, const std::string& valor) {
    return Celula({x, y, 8.5, 0.6}, {"T EM Arial 8b #808000", 0.1, 0.05, 0.05}, rotulo,
                  {"T DM Arial 8", 0.1, 0.05, 0.05}, valor);
}

Lista Entrada(double y, const std::string& municipio, const std::string& codigo,
              const std::string& valor) {
    return Metade(0, y, municipio, codigo) + Metade(8.5, y, "", valor);
}

Lista Soma(double y, const std::string& rotulo, const std::string& valor) {
    return Metade(8.5, y, rotulo, valor);
}

TEST_F(RelatorioMIDAXB, Group1GivesEveryTownInARowItsSubtotal) {
    Entradas(R"((1, '1.3', '11', 20000), (1, '1.1', '11', 10000), (1, '1.1', '10', 12345600),
        (1, '1.2', '13', null), (1, '1.2', '99', 10000), (1, '2.1', '10', 10000),
        (1, null, '10', 10000), (2, '1.1', '10', 10000))");
    ConferirPagina(Construir<RelatorioMIDAXBCodigo1>(banco_),
                   Cabecalho("MIDAX-B - Código 1", "Valor adicionado por município") +
                       Entrada(8.2, "", "1.2", "0,00") + Soma(8.8, "Subtotal", "0,00") +
                       Entrada(9.4, "Óbidos", "1.1", "1.234,56") +
                       Soma(10.0, "Subtotal", "1.234,56") + Entrada(10.6, "Olinda", "1.1", "1,00") +
                       Entrada(11.2, "Olinda", "1.3", "2,00") + Soma(11.8, "Subtotal", "3,00") +
                       Soma(12.4, "Total", "1.237,56") + RodapeEsperado());
}

TEST_F(RelatorioMIDAXB, TownsThatDifferInCaseOnlyAreTwoWhereverTheyMeet) {
    Entradas(R"((1, '2.1', '11', 10000), (1, '2.2', '12', 20000), (1, '2.3', '11', 30000),
        (1, '2.4', '11', 40000))");
    EXPECT_THAT(
        LinhasDesde(Corpo, Construir<RelatorioMIDAXBCodigo2>(banco_), 0),
        ElementsAre("8.20: Olinda 2.1  1,00", "8.80: Subtotal 1,00", "9.40: OLINDA 2.2  2,00",
                    "10.00: Subtotal 2,00", "10.60: Olinda 2.3  3,00", "11.20: Olinda 2.4  4,00",
                    "11.80: Subtotal 7,00", "12.40: Total 10,00"));
}

TEST_F(RelatorioMIDAXB, LinesSubtotalsAndTotalKeepThePageEnd) {
    const FimDePagina fim{23.7, Corpo};
    const auto linha = [](const std::string& y) { return y + ": Óbidos 1.1  1,00"; };
    const auto conferir = [&](int entradas, const Lista& primeira, const Lista& segunda) {
        EntradasIguais("1.1", entradas);
        const Conteudo c = Construir<RelatorioMIDAXBCodigo1>(banco_);
        fim.Conferir(c, primeira, segunda);
        EXPECT_EQ(Textos(c, segunda.empty() ? 0 : 1).at(5), "Valor adicionado por município");
    };
    conferir(26, {"23.80: Subtotal 26,00", "24.40: Total 26,00"}, {});
    conferir(27, {linha("23.80"), "24.40: Subtotal 27,00"}, {"8.20: Total 27,00"});
    conferir(28, {linha("23.80"), linha("24.40")}, {"8.20: Subtotal 28,00", "8.80: Total 28,00"});
    conferir(29, {linha("23.80"), linha("24.40")},
             {linha("8.20"), "8.80: Subtotal 29,00", "9.40: Total 29,00"});
}

Lista Bloco(double y, const Lista& textos) {
    const EstiloEsperado esquerda{"M ET Arial 7", 0.2, 0.4};
    return Celula({0, y, 1.8, 2.3}, Rotulo, "Código MIDAX", esquerda, textos[0]) +
           Celula({1.8, y, 12, 2.3}, Rotulo, "Descrição", esquerda, textos[1]) +
           Celula({13.8, y, 3.2, 2.3}, Rotulo, "Valor", {"M DT Arial 7", 0.2, 0.4}, textos[2]);
}

Lista TotalDoGrupo3(double y, const std::string& valor) {
    return Celula({8.5, y, 8.5, 0.7}, {"T ET Arial 9b #808000", 0.1, 0.05, 0.05}, "Total",
                  {"T DM Arial 7", 0.2, 0.05, 0.05}, valor);
}

TEST_F(RelatorioMIDAXB, Group3PrintsItsBlocksInTheOrderInWhichTheyWereAdded) {
    Entradas(R"((1, '3.2', null, 10000), (1, '3.1', '99', 12345600), (1, '3.9', '10', 10000),
        (1, '3.1', null, null))");
    ConferirPagina(Construir<RelatorioMIDAXBCodigo3>(banco_),
                   Cabecalho("MIDAX-B - Código 3", "Demais códigos") +
                       Bloco(8.2, {"3.2", "", "1,00"}) +
                       Bloco(10.5, {"3.1", "Produção rural", "1.234,56"}) +
                       Bloco(12.8, {"3.1", "Produção rural", "0,00"}) +
                       TotalDoGrupo3(15.1, "1.235,56") + RodapeEsperado());
}

TEST_F(RelatorioMIDAXB, Group3HoldsSevenBlocksAPageWithTheTotalBelowThem) {
    const FimDePagina fim{22.0, Corpo};
    const std::string bloco = ": Código MIDAX 3.1 Descrição Produção rural Valor 1,00";
    EntradasIguais("3.1", 7);
    fim.Conferir(Construir<RelatorioMIDAXBCodigo3>(banco_), {"22.00" + bloco, "24.30: Total 7,00"},
                 {});
    EntradasIguais("3.1", 8);
    fim.Conferir(Construir<RelatorioMIDAXBCodigo3>(banco_), {"22.00" + bloco},
                 {"8.20" + bloco, "10.50: Total 8,00"});
}

TEST_F(RelatorioMIDAXB, WithoutEntriesOnlyTheTotalStandsUnderTheGroupsHeading) {
    ConferirPagina(
        Construir<RelatorioMIDAXBCodigo2>(banco_),
        Cabecalho("MIDAX-B - Código 2", "") + Soma(8.2, "Total", "0,00") + RodapeEsperado());
    ConferirPagina(Construir<RelatorioMIDAXBCodigo3>(banco_),
                   Cabecalho("MIDAX-B - Código 3", "Demais códigos") + TotalDoGrupo3(8.2, "0,00") +
                       RodapeEsperado());
}

}  // namespace
}  // namespace tarvo::apoio
