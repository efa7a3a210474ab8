// SPDX-License-Identifier: MIT
#include <string>

#include "tests/databases/sqlite/LinhasDe.h"

namespace tarvo {

namespace {

TEST(Leitura, GivesValuesOfTheirColumnsTypesOrNamesThem) {
    apoio::Roteiro roteiro;
    // The sum of declaration 7's values among pairs of declaration and value, in ten-thousandths.
    roteiro.Ensinar("soma", [&](const std::string& valores) {
        roteiro.Banco().Executar(
            "DELETE FROM tblPagamento; INSERT INTO tblPagamento (NroDRQ, Valor) VALUES " + valores);
        const auto soma = roteiro.Banco()->OpenRecordset(
            "SELECT Sum(Valor) AS Soma FROM tblPagamento GROUP BY NroDRQ HAVING NroDRQ=7",
            TipoRecordset::Dynaset);
        const Valor valor = soma->Fields("Soma");
        EXPECT_TRUE(EhNulo(valor) || std::holds_alternative<Moeda>(valor));
        return apoio::LinhasDe(*soma, "Soma");
    });
    roteiro.Conferir("databases/sqlite/valores.txt");
}

class Valores : public testing::Test {
  protected:
    apoio::BancoDeTeste banco_;
};

TEST_F(Valores, WritingConvertsToTheColumnsType) {
    const auto pagamentos =
        banco_->OpenRecordset("SELECT * FROM tblPagamento", TipoRecordset::Dynaset);
    const auto acrescentar = [&](const Valor& numero, const Valor& proprias, const Valor& data,
                                 const Valor& valor) {
        pagamentos->AddNew();
        pagamentos->Fields("NroDRQ") = numero;
        pagamentos->Fields("OpPróprias") = proprias;
        pagamentos->Fields("Data") = data;
        pagamentos->Fields("Valor") = valor;
        pagamentos->Update();
    };
    acrescentar(std::string("7"), true, Data::DeTexto("05/03/2001 10:20:30"),
                std::string("1.234,56"));
    acrescentar(2.5, std::int32_t{2}, std::string("5/3/01"), 0.00005);
    acrescentar(Nulo{}, Nulo{}, Nulo{}, Nulo{});
    EXPECT_EQ(LinhasDe(*banco_, "SELECT * FROM tblPagamento", "NroDRQ|OpPróprias|Data|Valor"),
              "7|Verdadeiro|05/03/2001 10:20:30|1234,56\n2|Verdadeiro|05/03/2001|0\n"
              "∅|∅|∅|∅");

    pagamentos->AddNew();
    EXPECT_THAT(
        apoio::ErroDe([&] { pagamentos->Fields("valor") = std::string("dois reais"); }).Descricao(),
        testing::AllOf(testing::HasSubstr("\"dois reais\""), testing::HasSubstr("\"Valor\""),
                       testing::HasSubstr("\"tblPagamento\"")));
}

TEST_F(Valores, TheFileHoldsEachTypeInItsStoredForm) {
    const auto pagamentos =
        banco_->OpenRecordset("SELECT * FROM tblPagamento", TipoRecordset::Dynaset);
    pagamentos->AddNew();
    pagamentos->Fields("OpPróprias") = true;
    pagamentos->Fields("Data") = Data::DeCivil({.ano = 2003, .mes = 5, .dia = 1});
    pagamentos->Fields("Valor") = Moeda::DeTexto("1.234,56");
    pagamentos->Update();
    banco_.Executar(
        "INSERT INTO tblVELO (Contribuinte) SELECT typeof(OpPróprias) || OpPróprias || "
        "' ' || Data || ' ' || typeof(Valor) || Valor FROM tblPagamento");
    EXPECT_EQ(banco_.Linhas("SELECT * FROM tblVELO", 1).front(),
              "integer-1 2003-05-01 integer12345600");
}

}  // namespace

}  // namespace tarvo
