#include "reports/RelatorioNotasSaiZFMALC.h"

#include "tests/reports/PaginaEsperada.h"

namespace tarvo::apoio {
namespace {

using testing::ElementsAreArray;

class RelatorioNotas : public testing::Test {
  protected:
    // That many invoices of 1,00 each.
    void Notas(const std::string& CFOP, int quantas) {
        banco_.Executar(Repetir(quantas,
                                "insert into tblZFM_ALC (NroDRQ, CFOP, NF, MunicípioDest, Valor) "
                                "select 1, '" +
                                    CFOP + "', i, '10', 10000 from n"));
    }
    const Conteudo& Construir() {
        relatorio_.Construir(*banco_, "1", 1);
        return relatorio_.Documento();
    }

    BancoDeTeste banco_{std::string(DuasDeclaracoes) + R"sql(
        insert into tblMunicípiosZFM_ALC (CódMunicípio, Município, UF)
        values ('10', 'Manaus', 'AM'), ('20', null, null);
        insert into tblDetalhesCFOPs (NroDRQ, CFOP) values
            (1, '6107'), (1, '6109'), (1, '5101'), (1, '6555'), (2, '6107'), (2, '6110');)sql"};
    RelatorioNotasSaiZFMALC relatorio_;
};

// The cell of a group's CFOP, a subtotal or the total.
Lista Negrito(double y, const std::string& rotulo, const std::string& valor) {
    return Celula({0, y, 17, 0.6}, {"T EM Arial 9b #808000", 0.1, 0.05, 0.05}, rotulo,
                  {"T DM Arial 9b", 0.1, 0.05, 0.05}, valor);
}

Lista Titulos(double y) {
    return Celula({0, y, 3.2, 0.9}, TituloDeColuna, "Data de Emissão\r\nda Nota Fiscal") +
           Celula({3.2, y, 3, 0.9}, TituloDeColuna, "Número da\r\nNota Fiscal") +
           Celula({6.2, y, 4, 0.9}, TituloDeColuna, "Município de\r\nDestino") +
           Celula({10.2, y, 3.3, 0.9}, TituloDeColuna, "CNPJ do\r\nDestinatário") +
           Celula({13.5, y, 3.5, 0.9}, TituloDeColuna, "Valor");
}

Lista Nota(double y, const Lista& textos) {
    const EstiloEsperado centro{"T CM Arial 8", 0.1, 0.05, 0.05};
    const EstiloEsperado direita{"T DM Arial 8", 0.1, 0.05, 0.05};
    return Celula({0, y, 3.2, 0.6}, centro, textos[0]) +
           Celula({3.2, y, 3, 0.6}, direita, textos[1]) +
           Celula({6.2, y, 4, 0.6}, direita, textos[2]) +
           Celula({10.2, y, 3.3, 0.6}, centro, textos[3]) +
           Celula({13.5, y, 3.5, 0.6}, direita, textos[4]);
}

TEST_F(RelatorioNotas, GroupsByCfopWithSubtotalsAndLeavesOutWhatHasNoPartner) {
    banco_.Executar(R"sql(insert into tblZFM_ALC
        (NroDRQ, CFOP, NF, Data, MunicípioDest, CNPJDest, Valor) values
        (1, '6109', '7', '2003-07-20', '10', '00.2', 505000),
        (1, '6107', '5', '2003-07-31', '10', '00.3', 400000),
        (1, '6107', '4', '2003-07-02', '10', '00.3', 300000),
        (1, '6107', '4', '2003-07-02', '10', '00.3', 300000),
        (1, '6107', null, null, '20', null, null),
        (1, '6107', '90', '2003-07-02', '99', '00.3', 10000),
        (1, '6110', '91', '2003-07-02', '10', '00.3', 10000),
        (1, '5101', '92', '2003-07-02', '10', '00.3', 10000),
        (2, '6107', '93', '2003-07-02', '10', '00.3', 10000);)sql");
    EXPECT_THAT(Curtas(Construir(), 0),
                ElementsAreArray(
                    CabecalhoEsperado("Relação de Notas Fiscais de Saída para ZFM / ALC") +
                    Negrito(5.9, "CFOP", "6107") + Titulos(6.5) +
                    Nota(7.4, {"30/12/1899", "", "/", "", "0,00"}) +
                    Nota(8.0, {"02/07/2003", "4", "Manaus/AM", "00.3", "30,00"}) +
                    Nota(8.6, {"02/07/2003", "4", "Manaus/AM", "00.3", "30,00"}) +
                    Nota(9.2, {"31/07/2003", "5", "Manaus/AM", "00.3", "40,00"}) +
                    Negrito(9.8, "Subtotal", "100,00") + Lista{"R 0 10.6 17 0.1 #808000 #808000"} +
                    Negrito(10.9, "CFOP", "6109") + Titulos(11.5) +
                    Nota(12.4, {"20/07/2003", "7", "Manaus/AM", "00.2", "50,50"}) +
                    Negrito(13.0, "Subtotal", "50,50") + Lista{"R 0 13.8 17 0.1 #808000 #808000"} +
                    Negrito(14.1, "Total", "150,50") + RodapeEsperado()));
}

TEST_F(RelatorioNotas, WithoutInvoicesItPrintsABlankGroupAndAZeroTotal) {
    EXPECT_THAT(
        Curtas(Construir(), 0),
        ElementsAreArray(CabecalhoEsperado("Relação de Notas Fiscais de Saída para ZFM / ALC") +
                         Negrito(5.9, "CFOP", " ") + Titulos(6.5) + Negrito(7.4, "Total", "0,00") +
                         RodapeEsperado()));
}

// The first group's invoices stand at 7.4, 8.0, ...; its subtotal takes 1.1.
TEST_F(RelatorioNotas, GroupsRowsSubtotalsAndTotalKeepTheirPageLimits) {
    const FimDePagina fim{22.85, 5.9};
    const std::string titulos =
        " Data de Emissão\r\nda Nota Fiscal Número da\r\nNota Fiscal Município de\r\nDestino CNPJ "
        "do\r\nDestinatário Valor";
    const auto nota = [](const std::string& y, int n) {
        return y + ": 30/12/1899 " + std::to_string(n) + " Manaus/AM  1,00";
    };
    const Lista ate28 = {nota("23.00", 27), nota("23.60", 28)};
    const auto conferir = [&](int notas, int notasDoSegundo, const Lista& primeira,
                              const Lista& segunda) {
        banco_.Executar("delete from tblZFM_ALC;");
        Notas("6107", notas);
        if (notasDoSegundo > 0) {
            Notas("6109", notasDoSegundo);
        }
        fim.Conferir(Construir(), primeira, segunda);
    };
    conferir(24, 1, {"22.90: CFOP 6109", "23.50:" + titulos, nota("24.40", 1)},
             {"5.90: Subtotal 1,00", "7.00: Total 25,00"});
    conferir(25, 1, {},
             {"5.90: CFOP 6109", "6.50:" + titulos, nota("7.40", 1), "8.00: Subtotal 1,00",
              "9.10: Total 26,00"});
    conferir(27, 0, {nota("23.00", 27), "23.60: Subtotal 27,00"}, {"5.90: Total 27,00"});
    conferir(28, 0, ate28, {"5.90: Subtotal 28,00", "7.00: Total 28,00"});
    conferir(29, 0, ate28 + Lista{nota("24.20", 29)},
             {"5.90: Subtotal 29,00", "7.00: Total 29,00"});
    // Invoices that run on have no headings above them.
    conferir(30, 0, ate28 + Lista{nota("24.20", 29)},
             {nota("5.90", 30), "6.50: Subtotal 30,00", "7.60: Total 30,00"});
}

}  // namespace
}  // namespace tarvo::apoio
