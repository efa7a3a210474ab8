// SPDX-License-Identifier: MIT
#include <algorithm>
#include <string>
#include <vector>

#include "tests/databases/sqlite/LinhasDe.h"

namespace tarvo {

namespace {

using Respostas = apoio::Roteiro::Respostas;

class Dialeto : public testing::Test {
  protected:
    static std::string CodigosOnde(BancoDados& banco, const std::string& condicao) {
        return LinhasDe(banco, "SELECT Código FROM tblOcorrências WHERE " + condicao, "Código");
    }
    std::string CodigosOnde(const std::string& condicao) { return CodigosOnde(*banco_, condicao); }

    apoio::BancoDeTeste banco_{R"(
INSERT INTO "tblOcorrências" ("NroDRQ", "CódSubItem", "Código", "Valor", "OpPróprias") VALUES
    (7, 'b', 1, 15000, -1), (7, 'Á', 2, 20000, 0), (7, 'a', 3, -5, 7), (8, NULL, 4, NULL, NULL),
    (8, 'B', 5, 15000, 0);
INSERT INTO "tblQuadroOcorrências" VALUES ('B', 0, 'x', NULL), ('a', -1, 'y', NULL);)"};
};

TEST_F(Dialeto, MeansWhatItsRoteiroTells) {
    apoio::Roteiro roteiro;
    roteiro.Ensinar("onde", [&](const std::string& condicao) {
        auto codigos = CodigosOnde(*roteiro.Banco(), condicao);
        std::replace(codigos.begin(), codigos.end(), '\n', ' ');
        return Respostas{codigos};
    });
    roteiro.Ensinar("excluir", [&](const std::string& comando) {
        roteiro.Banco()->CreateQueryDef("", comando)->Execute();
        return Respostas();
    });
    roteiro.Conferir("databases/sqlite/dialeto.txt");
    EXPECT_THAT(apoio::ErroDe([&] { CodigosOnde(std::string(5000, '(')); }).Descricao(),
                testing::HasSubstr("aninhada demais"));
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
    EXPECT_EQ(NumeroDoErro([&] { LinhasDe(*banco_, todas, "Nova"); }), 3265);
    banco_.Executar("ALTER TABLE tblQuadroOcorrências ADD COLUMN Nova TEXT DEFAULT 'n'");
    EXPECT_EQ(LinhasDe(*banco_, todas, "Nova"), "n\nn");
}

}  // namespace

}  // namespace tarvo
