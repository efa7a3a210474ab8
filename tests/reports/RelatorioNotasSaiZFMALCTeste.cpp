// SPDX-License-Identifier: MIT
#include "reports/RelatorioNotasSaiZFMALC.h"

#include "tests/reports/PaginaEsperada.h"

namespace tarvo::apoio {
namespace {

class RelatorioNotas : public testing::Test {
  protected:
    Conteudo ConstruirNotas() { return Construir<RelatorioNotasSaiZFMALC>(banco_); }

    BancoDeTeste banco_{std::string(DuasDeclaracoes) + R"sql(
        insert into tblMunicípiosZFM_ALC (CódMunicípio, Município, UF)
        values ('10', 'Manaus', 'AM'), ('20', null, null);
        insert into tblDetalhesCFOPs (NroDRQ, CFOP) values
            (1, '6107'), (1, '6109'), (1, '5101'), (1, '6555'), (2, '6107'), (2, '6110');)sql"};
};

const Lista Cabecalho = CabecalhoEsperado("Relação de Notas Fiscais de Saída para ZFM / ALC");

// The cell of a group's CFOP, a subtotal or the total.
Lista Negrito(double y, const std::string& rotulo, const std::string& valor) {
    return Celula({0, y, 17, 0.6}, {"T EM Arial 9b #808000", 0.1, 0.05, 0.05}, rotulo,
                  {"T DM Arial 9b", 0.1, 0.05, 0.05}, valor);
}

Lista TitulosEm(double y) {
    return Titulos({{0, y, 3.2, 0.9, "Data de Emissão\r\nda Nota Fiscal"},
                    {3.2, y, 3, 0.9, "Número da\r\nNota Fiscal"},
                    {6.2, y, 4, 0.9, "Município de\r\nDestino"},
                    {10.2, y, 3.3, 0.9, "CNPJ do\r\nDestinatário"},
                    {13.5, y, 3.5, 0.9, "Valor"}});
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
    ConferirPagina(
        ConstruirNotas(),
        Cabecalho + Negrito(5.9, "CFOP", "6107") + TitulosEm(6.5) +
            Nota(7.4, {"30/12/1899", "", "/", "", "0,00"}) +
            Nota(8.0, {"02/07/2003", "4", "Manaus/AM", "00.3", "30,00"}) +
            Nota(8.6, {"02/07/2003", "4", "Manaus/AM", "00.3", "30,00"}) +
            Nota(9.2, {"31/07/2003", "5", "Manaus/AM", "00.3", "40,00"}) +
            Negrito(9.8, "Subtotal", "100,00") + Lista{"R 0 10.6 17 0.1 #808000 #808000"} +
            Negrito(10.9, "CFOP", "6109") + TitulosEm(11.5) +
            Nota(12.4, {"20/07/2003", "7", "Manaus/AM", "00.2", "50,50"}) +
            Negrito(13.0, "Subtotal", "50,50") + Lista{"R 0 13.8 17 0.1 #808000 #808000"} +
            Negrito(14.1, "Total", "150,50") + RodapeEsperado());
}

TEST_F(RelatorioNotas, WithoutInvoicesItPrintsABlankGroupAndAZeroTotal) {
    ConferirPagina(ConstruirNotas(), Cabecalho + Negrito(5.9, "CFOP", " ") + TitulosEm(6.5) +
                                         Negrito(7.4, "Total", "0,00") + RodapeEsperado());
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
    const auto conferir = [&](int notas, bool segundoGrupo, const Lista& primeira,
                              const Lista& segunda) {
        const std::string inserir =
            "insert into tblZFM_ALC (NroDRQ, CFOP, NF, MunicípioDest, Valor) select 1, ";
        banco_.Executar("delete from tblZFM_ALC;" +
                        Repetir(notas, inserir + "'6107', i, '10', 10000 from n") +
                        Repetir(1, inserir + "'6109', i, '10', 10000 from n where " +
                                       (segundoGrupo ? "1" : "0")));
        fim.Conferir(ConstruirNotas(), primeira, segunda);
    };
    conferir(24, true, {"22.90: CFOP 6109", "23.50:" + titulos, nota("24.40", 1)},
             {"5.90: Subtotal 1,00", "7.00: Total 25,00"});
    conferir(25, true, {},
             {"5.90: CFOP 6109", "6.50:" + titulos, nota("7.40", 1), "8.00: Subtotal 1,00",
              "9.10: Total 26,00"});
    conferir(27, false, {nota("23.00", 27), "23.60: Subtotal 27,00"}, {"5.90: Total 27,00"});
    conferir(28, false, ate28, {"5.90: Subtotal 28,00", "7.00: Total 28,00"});
    conferir(29, false, ate28 + Lista{nota("24.20", 29)},
             {"5.90: Subtotal 29,00", "7.00: Total 29,00"});
    // Invoices that run on have no headings above them.
    conferir(30, false, ate28 + Lista{nota("24.20", 29)},
             {nota("5.90", 30), "6.50: Subtotal 30,00", "7.60: Total 30,00"});
}

}  // namespace
}  // namespace tarvo::apoio
