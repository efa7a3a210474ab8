// SPDX-License-Identifier: MIT
#include "reports/RelatorioDetSubitens.h"

#include "tests/reports/PaginaEsperada.h"

namespace tarvo::apoio {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr double N = 17.0 / 6;  // width of the invoice and period boxes

Lista Cabecalho(const std::string& titulo) {
    return TopoEsperado() + Celula({0, 2.9, 17, 1.4}, TituloDeQuadro, titulo) +
           IdentificacaoEsperada(4.3);
}

const EstiloEsperado RotuloTeal{"T ET Arial 9b #808000", 0.1, 0.05, 0.05};

Lista Subitem(double y, const std::string& codigo, const std::string& ocorrencia,
              const std::string& fundamento) {
    const EstiloEsperado texto{"M ET Arial 6", 0.2, 0.3};
    return Celula({0, y, 17, 0.7}, RotuloTeal, "Código do Subitem",
                  {"T DM Arial 9b", 0.2, 0.05, 0.05}, codigo) +
           Celula({0, y + 0.7, 8.5, 1.1}, Rotulo, "Ocorrência", texto, ocorrencia) +
           Celula({8.5, y + 0.7, 8.5, 1.1}, Rotulo, "Fundamentação Legal", texto, fundamento);
}

Lista Caixa(double x, double y, double largura, const std::string& rotulo,
            const std::string& valor) {
    return Celula({x, y, largura, 0.6}, {"T ET Arial 6", 0.1, 0.05, 0.05}, rotulo,
                  {"T DB Arial 8", 0.2}, valor);
}

Lista Soma(double y, const std::string& rotulo, const std::string& valor) {
    return Celula({0, y, 17, 0.7}, RotuloTeal, rotulo, {"T DM Arial 9", 0.2, 0.05, 0.05}, valor) +
           Lista{Curta("R", {0, y + 0.9, 17, 0.1}, "#808000 #808000")};
}

Lista Transferencia(double y, const std::string& ie, const std::string& valor) {
    return Caixa(8.5, y, 4.25, "Inscrição Estadual", ie) +
           Caixa(12.75, y, 4.25, "Valor da Transferência", valor);
}

constexpr const char* TituloCentralizacao =
    "Centralização do Imposto\r\n(Subitens 002.18, 002.19, 007.29 e 007.30) - Operações Próprias";

class RelatorioDetSubitens : public testing::Test {
  protected:
    BancoDeTeste banco_{std::string(DuasDeclaracoes) + R"sql(
        insert into tblQuadroOcorrências (CódSubItem, OpPróprias, Ocorrência, FLegal) values
            ('002.18', -1, 'Recebida', 'art. 1'), ('007.29', -1, null, null),
            ('002.18', 0, 'ST', 'ST'), ('002.19', 0, 'ST', 'ST');)sql"};
};

TEST_F(RelatorioDetSubitens, PrintsEachEntryWithItsRowsAndItsDeclaredValue) {
    banco_.Executar(R"sql(
        insert into tblOcorrências (NroDRQ, CódSubItem, Código, Valor, OpPróprias) values
            (1, '007.29', 12, null, -1), (1, '002.18', 11, 12345600, -1),
            (1, '002.18', 13, 10000, 0), (1, '002.19', 14, 10000, -1), (1, '002.20', 15, 10000, -1),
            (2, '002.18', 16, 10000, -1);
        insert into tblIEsRemetente (Código, IERemetente, Valor) values
            (11, 'b', 10000), (12, null, null), (11, 'A', 20000), (13, 'x', 10000);)sql");
    ConferirPagina(Construir<RelatorioDetCentrRecImp>(banco_),
                   Cabecalho(TituloCentralizacao) + Subitem(6.6, "002.18", "Recebida", "art. 1") +
                       Transferencia(8.4, "A", "2,00") + Transferencia(9.0, "b", "1,00") +
                       Soma(9.6, "Subtotal", "1.234,56") + Subitem(10.8, "007.29", "", "") +
                       Transferencia(12.6, "", "0,00") + Soma(13.2, "Subtotal", "0,00") +
                       Soma(14.4, "Total", "1.234,56") + RodapeEsperado());
}

TEST_F(RelatorioDetSubitens, WithoutEntriesABlankHeadingAndAZeroTotalStand) {
    ConferirPagina(Construir<RelatorioDetCentrRecImp>(banco_),
                   Cabecalho(TituloCentralizacao) + Subitem(6.6, " ", " ", " ") +
                       Soma(8.4, "Total", "0,00") + RodapeEsperado());
}

TEST_F(RelatorioDetSubitens, HeadingsRowsAndSumsKeepTheirPageLimits) {
    const FimDePagina fim{22.75, 6.6};
    const auto linha = [](const std::string& y, int n) {
        return y + ": Inscrição Estadual " + std::to_string(n) + " Valor da Transferência 1,00";
    };
    // Entry 1 with that many rows from 8.4 on, and perhaps an entry 2 without rows.
    const auto conferir = [&](int linhas, bool segundaEntrada, const Lista& primeira,
                              const Lista& segunda) {
        banco_.Executar(
            "delete from tblOcorrências; delete from tblIEsRemetente; insert into tblOcorrências "
            "(NroDRQ, CódSubItem, Código, Valor, OpPróprias) values (1, '002.18', 1, 50000, -1)" +
            std::string(segundaEntrada ? ", (1, '007.29', 2, 60000, -1);" : ";") +
            Repetir(linhas,
                    "insert into tblIEsRemetente (Código, IERemetente, Valor) select 1, "
                    "100 + i, 10000 from n"));
        fim.Conferir(Construir<RelatorioDetCentrRecImp>(banco_), primeira, segunda);
    };
    const std::string textos = ": Ocorrência  Fundamentação Legal ";
    const Lista ate26 = {linha("22.80", 125), linha("23.40", 126)};
    conferir(24, false, {"22.80: Subtotal 5,00", "24.00: Total 5,00"}, {});
    conferir(25, false, {linha("22.80", 125), "23.40: Subtotal 5,00"}, {"6.60: Total 5,00"});
    conferir(26, false, ate26 + Lista{"24.00: Subtotal 5,00"}, {"6.60: Total 5,00"});
    conferir(27, false, ate26 + Lista{linha("24.00", 127)},
             {"6.60: Subtotal 5,00", "7.80: Total 5,00"});
    conferir(28, false, ate26 + Lista{linha("24.00", 127)},
             {linha("6.60", 128), "7.20: Subtotal 5,00", "8.40: Total 5,00"});
    conferir(21, true, {"22.90" + textos, "24.00: Subtotal 6,00"}, {"6.60: Total 11,00"});
    conferir(22, true, {},
             {"6.60: Código do Subitem 007.29", "7.30" + textos, "8.40: Subtotal 6,00",
              "9.60: Total 11,00"});
}

// An entry of 7,00 of the sub-item, with its supporting rows.
std::string UmaEntrada(const std::string& subitem, bool opProprias, const std::string& linhas) {
    const std::string tipo = "'" + subitem + (opProprias ? "', -1" : "', 0");
    return DuasDeclaracoes +
           ("insert into tblQuadroOcorrências (CódSubItem, OpPróprias) values (" + tipo +
            "); insert into tblOcorrências (NroDRQ, Código, Valor, CódSubItem, "
            "OpPróprias) values (1, 1, 70000, " +
            tipo + "); insert into " + linhas + ";");
}

// The entry's row in any of the reports stands at 8.4.
template <class R>
void ConferirLinha(const std::string& titulo, const std::string& subitem, bool opProprias,
                   const std::string& linha, const Lista& caixas,
                   const std::string& subtotal = "Subtotal", const std::string& total = "Total") {
    BancoDeTeste banco(UmaEntrada(subitem, opProprias, linha));
    ConferirPagina(Construir<R>(banco), Cabecalho(titulo) + Subitem(6.6, subitem, "", "") + caixas +
                                            Soma(9, subtotal, "7,00") + Soma(10.2, total, "7,00") +
                                            RodapeEsperado());
}

TEST_F(RelatorioDetSubitens, CreditReportsPrintOneBoxBesideTheValue) {
    ConferirLinha<RelatorioDetRecCredAcum>(
        "Recebimento de Crédito Acumulado\r\n(Subitens 007.04 a 007.07) - Operações Próprias",
        "007.07", true, "tblIEsRemetente values (1, '9', 10000)",
        Caixa(8.5, 8.4, 4.25, "Inscrição Estadual do Remetente", "9") +
            Caixa(12.75, 8.4, 4.25, "Valor da Nota Fiscal", "1,00"));
    ConferirLinha<RelatorioDetRecCredAcVE>(
        "Crédito Acumulado com Visto Eletrônico\r\n(Subitens 002.20, 002.21, 007.40 e 007.41) - "
        "Operações Próprias",
        "002.21", true, "tblRecibosCredito values (1, 'V9', 10000)",
        Caixa(8.5, 8.4, 4.25, "Visto Eletrônico", "V9") + Caixa(12.75, 8.4, 4.25, "Valor", "1,00"),
        "Total", "Total Geral");
}

TEST_F(RelatorioDetSubitens, RefundRowsCarryAnInvoiceUnlessTheSubItemHasNone) {
    const std::string titulo = "Ressarcimento do ICMS Retido por ST\r\n(Subitens ";
    const Lista valor = Caixa(12.75, 8.4, 4.25, "Valor do Ressarcimento", "1,00");
    const Lista periodo = Caixa(N + 4.25, 8.4, N, "Início do Período", "02/2003") +
                          Caixa(2 * N + 4.25, 8.4, N, "Final do Período", "12/1899") + valor;
    for (const bool comNota : {true, false}) {
        ConferirLinha<RelatorioDetResSubstitui>(
            titulo + "002.10 e 002.11) - Operações Próprias", comNota ? "002.10" : "002.11", true,
            "tblIESubstituto (Código, IESubstituto, NF, DataInicio, Valor) values "
            "(1, '9', '88', '2003-02-01', 10000)",
            Caixa(comNota ? 0 : N, 8.4, 4.25, "Inscrição Estadual do Substituto", "9") +
                (comNota ? Caixa(4.25, 8.4, N, "Nota Fiscal", "88") : Lista()) + periodo);
        ConferirLinha<RelatorioDetResSubstitut>(
            titulo + "007.01 e 007.02) - ST-11", comNota ? "007.01" : "007.02", false,
            "tblIESubstituido values (1, '9', '88', 10000)",
            Caixa(comNota ? 2 * N : 8.5, 8.4, 4.25, "Inscrição Estadual do Substituído", "9") +
                (comNota ? Caixa(2 * N + 4.25, 8.4, N, "Nota Fiscal", "88") : Lista()) + valor);
    }
}

TEST_F(RelatorioDetSubitens, RefundRowsStandInTheOrderOfRegistrationAndInvoice) {
    const auto ordenadas =
        ElementsAre(HasSubstr("A Nota Fiscal 2"), HasSubstr("A Nota Fiscal 3"),
                    HasSubstr("b Nota Fiscal 1"), "10.20: Subtotal 7,00", "11.40: Total 7,00");
    const std::string linhas = " values (1, 'b', '1'), (1, 'A', '3'), (1, 'A', '2')";
    BancoDeTeste substituto(
        UmaEntrada("002.10", true, "tblIESubstituto (Código, IESubstituto, NF)" + linhas));
    EXPECT_THAT(LinhasDesde(8.3, Construir<RelatorioDetResSubstitui>(substituto), 0), ordenadas);
    BancoDeTeste substituido(
        UmaEntrada("007.01", false, "tblIESubstituido (Código, IESubstituido, NF)" + linhas));
    EXPECT_THAT(LinhasDesde(8.3, Construir<RelatorioDetResSubstitut>(substituido), 0), ordenadas);
}

}  // namespace
}  // namespace tarvo::apoio
