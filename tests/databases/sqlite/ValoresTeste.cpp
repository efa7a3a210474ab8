// SPDX-License-Identifier: MIT
#include <limits>
#include <string>

#include "tests/databases/sqlite/LinhasDe.h"

namespace tarvo {

namespace {

class Valores : public testing::Test {
  protected:
    std::unique_ptr<Recordset> Abrir(const std::string& consulta,
                                     TipoRecordset tipo = TipoRecordset::Dynaset) {
        return banco_->OpenRecordset(consulta, tipo);
    }
    // The sum of declaration 7's values among pairs of declaration and value, in ten-thousandths.
    Valor Soma(const std::string& valores) {
        banco_.Executar(
            "DELETE FROM tblPagamento; INSERT INTO tblPagamento (NroDRQ, Valor) VALUES " + valores);
        return Abrir("SELECT Sum(Valor) AS Soma FROM tblPagamento GROUP BY NroDRQ HAVING NroDRQ=7")
            ->Fields("Soma");
    }
    // An action fails for a value that is not of its column's type, and says all that.
    template <class Acao>
    static void ConferirConversao(Acao&& acao, std::initializer_list<const char*> nomeados) {
        const Erro erro = apoio::ErroDe(acao);
        EXPECT_EQ(erro.Numero(), NumeroErro::ConversaoDeDado);
        for (const char* nome : nomeados) {
            EXPECT_THAT(erro.Descricao(), testing::HasSubstr("\"" + std::string(nome) + "\""));
        }
    }

    apoio::BancoDeTeste banco_;
};

constexpr auto Maior = std::numeric_limits<std::int64_t>::max();

TEST_F(Valores, SumsOfCurrencyAreExact) {
    EXPECT_EQ(Soma("(7, 1), (7, NULL), (7, 2)"), Valor(Moeda::DeDecimosMilesimos(3)));
    EXPECT_EQ(Soma("(7, NULL), (7, NULL)"), Valor(Nulo{}));
    const std::string maior = "(7, " + std::to_string(Maior) + ")";
    EXPECT_EQ(Soma("(7, -1), " + maior), Valor(Moeda::DeDecimosMilesimos(Maior - 1)));
    EXPECT_EQ(Soma(maior + ", (7, 1), (7, -1)"), Valor(Moeda::DeDecimosMilesimos(Maior)));
    EXPECT_EQ(apoio::ErroDe([&] { Soma(maior + ", (7, 1)"); }).Numero(), NumeroErro::Estouro);
}

TEST_F(Valores, ASumNamesWhatIsNoCurrency) {
    for (const char* valor : {"'abc'", "0.5", "x'41'"}) {
        ConferirConversao([&] { Soma("(7, 1), (7, " + std::string(valor) + ")"); },
                          {"tblPagamento", "Valor"});
    }
    EXPECT_EQ(Soma("(7, 1), (8, 'abc')"), Valor(Moeda::DeDecimosMilesimos(1)))
        << "another declaration's fault";
}

TEST_F(Valores, WhatDoesNotFitItsDeclaredTypeIsAnErrorThatNamesIt) {
    struct Caso {
        const char* tabela;
        const char* coluna;
        const char* valor;
        const char* mostrado;
    };
    int numero = 0;
    for (const auto& [tabela, coluna, valor, mostrado] : {
             Caso{"tblPagamento", "Valor", "'doze'", "doze"},
             Caso{"tblPagamento", "Valor", "1.25", "1,25"},
             Caso{"tblPagamento", "Valor", "1e30", "1e+30"},
             Caso{"tblPagamento", "Data", "'2003-02-30'", "2003-02-30"},
             Caso{"tblPagamento", "Data", "'05/03/2001'", "05/03/2001"},
             Caso{"tblPagamento", "Data", "37000", "37000"},
             Caso{"tblPagamento", "OpPróprias", "'sim'", "sim"},
             Caso{"tblDRQ", "Tipo", "2147483648", "2147483648"},
             Caso{"tblDRQ", "Tipo", "1.5", "1,5"},
             Caso{"tblDRQ", "RegTrib", "x'3031'", "01"},
             Caso{"tblDRQ", "RegTrib", "CAST(x'E1' AS TEXT)", "texto que não é UTF-8"},
         }) {
        SCOPED_TRACE(std::string(coluna) + " = " + valor);
        const std::string n = std::to_string(++numero);
        const std::string T = tabela;
        banco_.Executar("INSERT INTO " + T + " (NroDRQ, \"" + coluna + "\") VALUES (" + n + ", " +
                        valor + ")");
        for (const auto tipo : {TipoRecordset::ForwardOnly, TipoRecordset::Dynaset}) {
            const auto registros = Abrir("SELECT * FROM " + T + " WHERE NroDRQ = " + n, tipo);
            ConferirConversao([&, c = coluna] { static_cast<void>(Valor(registros->Fields(c))); },
                              {tabela, coluna, mostrado});
            EXPECT_EQ(Valor(registros->Fields("NroDRQ")), Valor(std::int32_t{numero}));
        }
    }
    // No row is left out because its value cannot be read.
    ConferirConversao([&] { Abrir("SELECT * FROM tblPagamento WHERE OpPróprias = TRUE"); },
                      {"OpPróprias"});
}

TEST_F(Valores, WritingConvertsToTheColumnsType) {
    const auto pagamentos = Abrir("SELECT * FROM tblPagamento");
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
    const auto lidos = Abrir("SELECT * FROM tblPagamento");
    EXPECT_EQ(LinhasDe(*lidos, "NroDRQ|OpPróprias|Data|Valor"),
              "7|Verdadeiro|05/03/2001 10:20:30|1234,56\n2|Verdadeiro|05/03/2001|0\n"
              "Null|Null|Null|Null");

    pagamentos->AddNew();
    ConferirConversao([&] { pagamentos->Fields("valor") = std::string("dois reais"); },
                      {"dois reais", "Valor", "tblPagamento"});
}

TEST_F(Valores, TheFileHoldsEachTypeInItsStoredForm) {
    const auto pagamentos = Abrir("SELECT * FROM tblPagamento");
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
