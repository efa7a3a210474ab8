// SPDX-License-Identifier: MIT
#include "databases/BancoEmMemoria.h"

#include "tests/support/Apoio.h"

namespace tarvo {
namespace {

using apoio::ErroDe;
using apoio::Linhas;
using apoio::NumeroDe;

TEST(BancoEmMemoria, GivesRowsInTheirOrderAsTheColumnsTypes) {
    BancoEmMemoria banco;
    banco.Tabela("TBLPAGAMENTO", {"nrodrq", "Valor", "Data", "OpPróprias"});
    banco.Linha({7, "1.234,56", Data::DeCivil({.ano = 2003, .mes = 7, .dia = 1}), true});
    banco.Linha({std::string("7"), 0.00005, "31/12/2003", 1});
    banco.Linha({7, Moeda::DeDecimosMilesimos(INT64_MAX), Nulo{}, Nulo{}});
    EXPECT_THAT(Linhas(banco, "select Valor from tblPagamento where NroDRQ = 7"),
                testing::ElementsAre("1234,56", "0", "922337203685477,5807"));
    EXPECT_THAT(Linhas(banco, "select Data from tblPagamento where OpPróprias = TRUE"),
                testing::ElementsAre("01/07/2003", "31/12/2003"));
    // More may follow at any time.
    banco.Linha({8, 1, Nulo{}, false});
    EXPECT_EQ(Linhas(banco, "select Valor from tblPagamento").size(), 4);
    EXPECT_TRUE(Linhas(banco, "select Linha from tblResumoCFOPsEntradas").empty());
}

TEST(BancoEmMemoria, RefusesWhatTheSchemaDoesNotHaveAndNeverInventsAValue) {
    BancoEmMemoria banco;
    EXPECT_EQ(NumeroDe([&] { banco.Linha({1}); }), NumeroErro::OperacaoInvalida);
    EXPECT_EQ(NumeroDe([&] { banco.Tabela("tblNada", {"x"}); }), NumeroErro::TabelaInexistente);
    EXPECT_EQ(NumeroDe([&] { banco.Tabela("tblDRQ", {"x"}); }), NumeroErro::ColunaDesconhecida);
    banco.Tabela("tblDRQ", {"NroDRQ", "DeduçõesRPA"});
    EXPECT_EQ(NumeroDe([&] { banco.Tabela("tblDRQ", {"NroDRQ"}); }), NumeroErro::OperacaoInvalida);
    EXPECT_EQ(NumeroDe([&] { banco.Linha({1}); }), NumeroErro::OperacaoInvalida);
    banco.Linha({1, "1e5"});
    EXPECT_EQ(NumeroDe([&] { Linhas(banco, "select RegTrib from tblDRQ"); }),
              NumeroErro::ColunaDesconhecida);
    EXPECT_EQ(NumeroDe([&] { Linhas(banco, "select NroDRQ from tblPagamento"); }),
              NumeroErro::TabelaInexistente);
    const Erro erro = ErroDe([&] { Linhas(banco, "select DeduçõesRPA from tblDRQ"); });
    EXPECT_EQ(erro.Numero(), NumeroErro::ConversaoDeDado);
    EXPECT_THAT(erro.Descricao(), testing::HasSubstr("1e5"));
}

}  // namespace
}  // namespace tarvo
