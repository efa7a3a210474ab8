// SPDX-License-Identifier: MIT
#include <string>
#include <vector>

#include "tests/databases/sqlite/LinhasDe.h"

namespace tarvo {

namespace {

constexpr std::string_view Dados = R"(
INSERT INTO "tblOcorrências" ("NroDRQ", "CódSubItem", "Código", "Valor", "OpPróprias") VALUES
    (7, 'b', 1, 15000, -1), (7, 'Á', 2, 20000, 0), (7, 'a', 3, -5, 7), (8, NULL, 4, NULL, NULL),
    (8, 'B', 5, 15000, 0);
INSERT INTO tblPagamento ("NroDRQ", "OpPróprias", "Data", "Valor") VALUES
    (7, -1, '2003-05-01', 1), (7, 0, '2003-05-01 00:00:00', 2), (7, 0, '2003-05-01 10:30:00', 3),
    (7, -1, '2002-12-31', 4), (7, NULL, NULL, 5);
INSERT INTO "tblQuadroOcorrências" VALUES ('B', 0, 'x', NULL), ('a', -1, 'y', NULL);
)";

class Dialeto : public testing::Test {
  protected:
    std::string Ler(const std::string& consulta, const std::string& colunas) {
        return LinhasDe(*banco_, consulta, colunas);
    }
    std::string CodigosOnde(const std::string& condicao) {
        return Ler("SELECT Código FROM tblOcorrências WHERE " + condicao, "Código");
    }

    apoio::BancoDeTeste banco_{Dados};
};

TEST_F(Dialeto, ConditionsChooseTheirRows) {
    const std::vector<std::pair<std::string, std::string>> casos = {
        {"CódSubItem = 'B'", "1\n5"},
        {"CÓDSUBITEM = 'á'", "2"},
        {"[códsubitem] <= 'b'", "1\n2\n3\n5"},
        {"CódSubItem >= 'á'", "1\n2\n5"},
        {"CódSubItem Like 'B*'", "1\n5"},
        {"CódSubItem & 'ção' Like 'ÁÇ*'", "2"},
        {"CódSubItem Like '*'", "1\n2\n3\n5"},
        {"Valor >= 2", "2"},
        {"Valor <= -0", "3"},
        {"OpPróprias = TRUE", "1\n3"},
        {"OpPróprias", "1\n3"},
        {"OpPróprias = -1", "1\n3"},
        {"(CódSubItem = 'b') = TRUE", "1\n5"},
        {"NroDRQ=8Or Código=1And(Valor>=1)", "1\n4\n5"},
        {"Left(CódSubItem & '-' & Código, 3) = 'b-1'", "1"},
        {"CódSubItem & Valor = ''", ""},
        {"CódSubItem = 'x'' Or ''1''=''1'", ""},
    };
    for (const auto& [condicao, codigos] : casos) {
        EXPECT_EQ(CodigosOnde(condicao), codigos) << condicao;
    }
}

TEST_F(Dialeto, DatesCompareAsDates) {
    EXPECT_EQ(Ler("SELECT Valor FROM tblPagamento ORDER BY Data", "Valor"),
              "0,0005\n0,0004\n0,0001\n0,0002\n0,0003");
    EXPECT_EQ(Ler("SELECT Data, Sum(Valor) AS V FROM tblPagamento GROUP BY Data", "V"),
              "0,0003\n0,0003\n0,0004\n0,0005");
}

TEST_F(Dialeto, OrderPutsNullsAndTrueFirst) {
    EXPECT_EQ(Ler("SELECT Código FROM tblOcorrências ORDER BY OpPróprias, CódSubItem", "Código"),
              "4\n3\n1\n2\n5");
}

TEST_F(Dialeto, GroupsWithoutRegardToCaseInTheOrderOfArrival) {
    EXPECT_EQ(Ler("SELECT CódSubItem, Sum(Valor), Sum(Código) AS C FROM tblOcorrências GROUP BY "
                  "CódSubItem",
                  "CódSubItem|Expr1001|C"),
              "b|3|6\nÁ|2|2\na|-0,0005|3\nNull|Null|4");
    EXPECT_EQ(Ler("SELECT Sum(Valor) AS V FROM tblOcorrências WHERE NroDRQ = 9", "V"), "Null");
}

TEST_F(Dialeto, AJoinFollowsTheFirstTableNamed) {
    const std::string onde = " WHERE tblQuadroOcorrências.CódSubItem = tblOcorrências.CódSubItem";
    EXPECT_EQ(Ler("SELECT Código FROM tblOcorrências, tblQuadroOcorrências" + onde, "Código"),
              "1\n3\n5");
    EXPECT_EQ(Ler("SELECT Código FROM tblQuadroOcorrências, tblOcorrências" + onde, "Código"),
              "1\n5\n3");
}

TEST_F(Dialeto, DeletesEveryRow) {
    banco_->CreateQueryDef("", "delete * from tblocorrências;")->Execute();
    EXPECT_EQ(CodigosOnde("TRUE"), "");
}

TEST_F(Dialeto, ErrorsHaveANumberAndNameWhatIsMissing) {
    const std::vector<std::tuple<std::string, int, std::string>> casos = {
        {"SELECT * FROM tblNada", 3078, "tblNada"},
        {"SELECT * FROM tblDRQ, [tbl outra]", 3078, "tbl outra"},
        {"SELECT Nada FROM tblDRQ", 3061, "Nada"},
        {"SELECT * FROM tblDRQ WHERE tblX.NroDRQ = 1", 3061, "tblX.NroDRQ"},
        {"SELECT tblX.* FROM tblDRQ", 3061, "tblX.*"},
        {"SELECT Sum(Tipo) FROM tblDRQ HAVING Nada = 1", 3061, "Nada"},
        {"SELECT * FROM tblDRQ ORDER BY Nada", 3061, "Nada"},
        {"SELECT IE FROM tblContribuinte, tblDRQ", 3079, "IE"},
        {"SELECT UF FROM tblEstados, tblDetalhesInterUFs WHERE tblDetalhesInterUFs.UF = Código",
         3079, "UF"},
        {"SELECT IE, Sum(Tipo) FROM tblDRQ", 3122, "IE"},
        {"SELECT NroDRQ FROM tblDRQ GROUP BY IE", 3122, "NroDRQ"},
        {"SELECT * FROM tblDRQ WHERE IE = 5", 3464, "IE"},
        {"SELECT * FROM tblDRQ WHERE NroDRQ = '5'", 3464, "NroDRQ"},
        {"SELECT * FROM tblDRQ WHERE IE", 3464, "condição"},
        {"SELECT Sum(IE) FROM tblDRQ", 3464, "IE"},
        {"", 3075, "posição 1, no fim do texto"},
        {"UPDATE tblDRQ SET Tipo = 1", 3075, "posição 1, perto de \"UPDATE"},
        {"SELECT * FROM tblOcorrências ORDEM", 3075, "posição 30, perto de \"ORDEM\""},
        {"SELECT * FROM tblDRQ WHERE (Tipo = 1", 3075, "no fim do texto: esperava \")\""},
        {"SELECT * FROM tblDRQ WHERE IE = 'x", 3075, "posição 33, perto de \"'x\""},
        {"SELECT [IE FROM tblDRQ", 3075, "nome sem \"]\""},
        {"SELECT IE AS FROM tblDRQ", 3075, "esperava o nome da coluna"},
        {"SELECT * FROM tblDRQ WHERE Tipo = 1 % 2", 3075, "perto de \"% 2\""},
        {"SELECT * FROM tblDRQ; SELECT 1", 3075, "esperava o fim"},
        {"SELECT Mid(IE, 1) FROM tblDRQ", 3075, "função desconhecida"},
        {"SELECT Left(IE) FROM tblDRQ", 3075, "esperava \",\""},
        {"SELECT Left(IE, IE) FROM tblDRQ", 3075, "Left espera"},
        {"SELECT * FROM tblDRQ WHERE Sum(Tipo) = 1", 3075, "soma numa condição"},
        {"SELECT NroDRQ FROM tblDRQ GROUP BY NroDRQ HAVING Sum(Tipo) = 1", 3075, "soma"},
        {"SELECT Sum(Sum(Tipo)) FROM tblDRQ", 3075, "soma dentro de outra"},
        {"SELECT * FROM tblDRQ, tblDRQ", 3075, "tabela repetida"},
        {"SELECT * FROM tblDRQ WHERE " + std::string(5000, '('), 3075, "aninhada demais"},
        {"DELETE * FROM tblDRQ", 3219, "exclui"},
        {"DELETE * FROM tblDRQ WHERE Tipo = 1", 3075, "perto de \"WHERE"},
    };
    for (const auto& [consulta, numero, trecho] : casos) {
        const Erro erro = apoio::ErroDe([&, texto = consulta] { Ler(texto, ""); });
        EXPECT_EQ(static_cast<int>(erro.Numero()), numero) << consulta;
        EXPECT_NE(erro.Descricao().find(trecho), std::string::npos) << consulta << "\n"
                                                                    << erro.Descricao();
    }
    EXPECT_EQ(apoio::ErroDe([&] {
                  banco_->CreateQueryDef("", "SELECT * FROM tblDRQ")->Execute();
              }).Numero(),
              NumeroErro::OperacaoInvalida);
}

// A query is translated once for all literals after its comparisons. Turned around, it is
// translated for each.
TEST_F(Dialeto, EveryLiteralFindsItsOwnRowsInAQueryTranslatedForAnother) {
    const std::vector<std::string> textos{
        "b", "B", "a", "á", "Á", "1", "", "x'' Or ''1''=''1", "''", "a\x01", "\x01n1\x01", "b\n"};
    for (const int vez : {1, 2}) {
        for (const std::string& texto : textos) {
            for (const char* valor : {"CódSubItem", "CódSubItem & ''", "Left(CódSubItem, 1)"}) {
                EXPECT_EQ(CodigosOnde(valor + (" = '" + texto + "'")),
                          CodigosOnde(("'" + texto + "' = ") + valor))
                    << valor << " " << texto << " " << vez;
            }
        }
        for (const char* const numero : {"0", "1", "2", "7", "007", "15000", "999999999",
                                         "1000000000", "99999999999999999999"}) {
            for (const char* coluna : {"Valor", "OpPróprias", "NroDRQ", "Código"}) {
                EXPECT_EQ(CodigosOnde(coluna + (std::string(" <= ") + numero)),
                          CodigosOnde(numero + (" >= " + std::string(coluna))))
                    << coluna << " " << numero << " " << vez;
            }
        }
        EXPECT_EQ(CodigosOnde("NroDRQ = 8 And Código = 5"), "5");
        EXPECT_EQ(CodigosOnde("NroDRQ = 7 And Código = 7"), "");
        EXPECT_EQ(CodigosOnde("NroDRQ = 7 And Código = 1"), "1");
    }
}

TEST_F(Dialeto, RecordsetsOfOneQueryStayApartAndOutliveChangesOfTheTables) {
    const auto abrir = [&](const std::string& numero) {
        return banco_->OpenRecordset("SELECT Código FROM tblOcorrências WHERE NroDRQ = " + numero,
                                     TipoRecordset::ForwardOnly);
    };
    const auto oito = abrir("8");
    const auto sete = abrir("7");
    EXPECT_EQ(LinhasDe(*oito, "Código"), "4\n5");
    EXPECT_EQ(LinhasDe(*sete, "Código"), "1\n2\n3");
    const std::string todas = "SELECT * FROM tblQuadroOcorrências";
    EXPECT_EQ(NumeroDoErro([&] { Ler(todas, "Nova"); }), 3265);
    banco_.Executar("ALTER TABLE tblQuadroOcorrências ADD COLUMN Nova TEXT DEFAULT 'n'");
    EXPECT_EQ(Ler(todas, "Nova"), "n\nn");
}

// What no report asks for is refused where it begins.
TEST_F(Dialeto, WhatNoReportAsksForIsRefusedWithItsPlace) {
    for (const char* resto :
         {"NOT Tipo = 1", "Tipo <> 1", "Tipo < 1", "Tipo = 1.5", "Tipo = Null", "Tipo Is Null",
          "Tipo Between 1 And 2", "Tipo In (1, 2)", "Ref1 = #5/1/2003#", "IE = \"1\"",
          "IE Like '?1*'", "IE Like '[1-3]*'", "IE Like '1*2'", "IE Like '1'", "IE Like IE",
          "Count(*) = 1", "Tipo = 1 ORDER BY Tipo DESC"}) {
        const std::string consulta = std::string("SELECT IE FROM tblDRQ WHERE ") + resto;
        const Erro erro = apoio::ErroDe([&] { Ler(consulta, ""); });
        EXPECT_EQ(erro.Numero(), NumeroErro::ErroSintaxeConsulta) << consulta;
        EXPECT_NE(erro.Descricao().find("perto de"), std::string::npos) << erro.Descricao();
    }
    EXPECT_EQ(NumeroDoErro([&] { Ler("SELECT DISTINCT IE FROM tblDRQ", ""); }), 3075);
    EXPECT_EQ(NumeroDoErro([&] { Ler("SELECT Max(IE) FROM tblDRQ", ""); }), 3075);
}

}  // namespace

}  // namespace tarvo
