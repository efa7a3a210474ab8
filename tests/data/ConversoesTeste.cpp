// SPDX-License-Identifier: MIT
#include "data/Consultas.h"
#include "data/LeitoresDeCampo.h"
#include "tests/support/Apoio.h"

namespace tarvo {
namespace {

using apoio::NumeroDe;

Data Dia(int ano, int mes, int dia) {
    return Data::DeCivil({.ano = ano, .mes = mes, .dia = dia});
}

TEST(Leitores, NullReadsAsTheEmptyValueOfEachType) {
    const Valor nulo;
    EXPECT_EQ(TextoCampo(nulo), "");
    EXPECT_EQ(LongCampo(nulo), 0);
    EXPECT_EQ(MoedaCampo(nulo), Moeda());
    EXPECT_EQ(DataCampo(nulo), Dia(1899, 12, 30));
    EXPECT_FALSE(BooleanoCampo(nulo));
}

TEST(Leitores, TextFormsFollowTheBrazilianConvention) {
    EXPECT_EQ(TextoCampo(std::string("São João")), "São João");
    EXPECT_EQ(TextoCampo(std::int32_t{-7}), "-7");
    EXPECT_EQ(TextoCampo(1.5), "1,5");
    EXPECT_EQ(TextoCampo(Moeda::DeDecimosMilesimos(12'345'000)), "1234,5");
    EXPECT_EQ(TextoCampo(Moeda::DeDecimosMilesimos(-2'500)), "-0,25");
    EXPECT_EQ(TextoCampo(Dia(2001, 3, 5)), "05/03/2001");
    EXPECT_EQ(TextoCampo(Data::DeTexto("5/3/2001 13:45")), "05/03/2001 13:45:00");
    EXPECT_EQ(TextoCampo(true), "Verdadeiro");
}

TEST(Leitores, IntegersRoundHalvesToEvenAndStayIn32Bits) {
    EXPECT_EQ(LongCampo(2.5), 2);
    EXPECT_EQ(LongCampo(3.5), 4);
    EXPECT_EQ(LongCampo(-2.5), -2);
    EXPECT_EQ(LongCampo(Moeda::DeDecimosMilesimos(35'000)), 4);
    EXPECT_EQ(LongCampo(Moeda::DeDecimosMilesimos(-35'000)), -4);
    EXPECT_EQ(LongCampo(Moeda::DeDecimosMilesimos(24'999)), 2);
    EXPECT_EQ(LongCampo(true), -1);
    EXPECT_EQ(LongCampo(std::string("1.234,5")), 1234);
    EXPECT_EQ(NumeroDe([] { LongCampo(2147483647.6); }), NumeroErro::Estouro);
    EXPECT_EQ(NumeroDe([] { LongCampo(std::string("2147483648")); }), NumeroErro::Estouro);
    EXPECT_EQ(NumeroDe([] { LongCampo(std::string("doze")); }), NumeroErro::TipoIncompativel);
}

TEST(Leitores, BooleansAreFalseOnlyForZero) {
    EXPECT_TRUE(BooleanoCampo(std::int32_t{7}));
    EXPECT_FALSE(BooleanoCampo(Moeda()));
    EXPECT_TRUE(BooleanoCampo(std::string("-1")));
    EXPECT_TRUE(BooleanoCampo(std::string("Verdadeiro")));
    EXPECT_EQ(NumeroDe([] { BooleanoCampo(std::string("talvez")); }), NumeroErro::TipoIncompativel);
}

TEST(Datas, SerialsCountFromThe30thOfDecember1899) {
    EXPECT_EQ(Dia(1900, 1, 1).Serial(), 2.0);
    EXPECT_EQ(Dia(2002, 12, 20).Serial(), 37610.0);
    EXPECT_EQ(DataCampo(37610.0), Dia(2002, 12, 20));
    const Data meioDia = Data::DeTexto("29/12/1899 12:00");
    EXPECT_EQ(meioDia.Serial(), -1.5) << "before day zero the fraction still is the time of day";
    EXPECT_EQ(meioDia.Civil(), (DataCivil{.ano = 1899, .mes = 12, .dia = 29, .hora = 12}));
    EXPECT_EQ(Data::DeSerial(37610.999999).Civil(), (DataCivil{.ano = 2002, .mes = 12, .dia = 21}))
        << "a time that rounds to midnight belongs to the next day";
    EXPECT_EQ(NumeroDe([] { Data::DeSerial(3'000'000); }), NumeroErro::Estouro);
}

TEST(Datas, TextIsDayMonthYearWithAWindowForTwoDigitYears) {
    EXPECT_EQ(Data::DeTexto("5/3/2001"), Dia(2001, 3, 5));
    EXPECT_EQ(Data::DeTexto("20/01/29"), Dia(2029, 1, 20));
    EXPECT_EQ(Data::DeTexto("20/01/30"), Dia(1930, 1, 20));
    EXPECT_EQ(Data::DeTexto("29/02/2004"), Dia(2004, 2, 29));
    for (const char* texto : {"", "20/", "29/02/2003", "31/04/2003", "20/13/2003", "20/1/203",
                              "2003-01-20", "20/01/2003x", "20/01/2003 25:00", "20/1/2003/4"}) {
        EXPECT_EQ(NumeroDe([&] { Data::DeTexto(texto); }), NumeroErro::TipoIncompativel) << texto;
    }
}

TEST(Datas, AMonthAndYearIsReadAsHandsWriteIt) {
    for (const char* texto : {"7/2003", "07/2003", "7/03", "07/03"}) {
        EXPECT_EQ(Data::DeMesAno(texto), Dia(2003, 7, 1)) << texto;
    }
    EXPECT_EQ(Data::DeMesAno("12/30"), Dia(1930, 12, 1));
    for (const char* texto : {"", "7", "7/", "/2003", "0/2003", "13/2003", "007/2003", "7/203",
                              "7/20034", "07/0099", "-7/2003", " 7/2003", "7/2003 ", "1/7/2003"}) {
        EXPECT_FALSE(Data::DeMesAno(texto).has_value()) << texto;
    }
}

TEST(Datas, TheStoredFormIsReadStrictly) {
    EXPECT_EQ(Data::DeIso("2001-03-05"), Dia(2001, 3, 5));
    EXPECT_EQ(Data::DeIso("2001-03-05 13:45:10")->Civil().segundo, 10);
    for (const char* texto : {"", "2001-3-5", "2001-02-30", "05/03/2001", "2001-03-05 13:45",
                              "2001-03-05T13:45:10", "2001-03-05 13:45:10x"}) {
        EXPECT_FALSE(Data::DeIso(texto).has_value()) << texto;
    }
}

TEST(Consultas, AQuoteInAValueCannotLeaveItsLiteral) {
    EXPECT_EQ(TextoSql("x' or '1'='1"), "'x'' or ''1''=''1'");
}

}  // namespace
}  // namespace tarvo
