// SPDX-License-Identifier: MIT
#include "data/Formatos.h"

#include "data/Legivel.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>

#include "tests/support/Apoio.h"

namespace tarvo {
namespace {

using apoio::NumeroDe;

Moeda M(std::int64_t unidades) {
    return Moeda::DeDecimosMilesimos(unidades);
}

const Moeda Maior = M(std::numeric_limits<std::int64_t>::max());
const Moeda Menor = M(std::numeric_limits<std::int64_t>::min());

TEST(Formatos, AmountsRoundHalvesAwayFromZeroAndNeverShowANegativeZero) {
    EXPECT_EQ(FormatarValor(M(0)), "0,00");
    EXPECT_EQ(FormatarValor(M(9'999'999)), "1.000,00");
    EXPECT_EQ(FormatarValor(M(50)), "0,01");
    EXPECT_EQ(FormatarValor(M(49)), "0,00");
    EXPECT_EQ(FormatarValor(M(-50)), "-0,01");
    EXPECT_EQ(FormatarValor(M(-49)), "0,00");
    EXPECT_EQ(FormatarValor(M(10'050)), "1,01");
    EXPECT_EQ(FormatarValor(M(1'000'000'0000)), "1.000.000,00");
    EXPECT_EQ(FormatarValor(Maior), "922.337.203.685.477,58");
    EXPECT_EQ(FormatarValor(Menor), "-922.337.203.685.477,58");
}

TEST(Formatos, DatesAndTimesArePaddedInBrazilianOrder) {
    const Data data = Data::DeCivil({.ano = 2003, .mes = 7, .dia = 5, .hora = 9, .minuto = 4});
    EXPECT_EQ(FormatarData(data), "05/07/2003");
    EXPECT_EQ(FormatarMesAno(data), "07/2003");
    EXPECT_EQ(FormatarHora(data), "09:04:00");
    EXPECT_EQ(FormatarData(Data()), "30/12/1899");
}

TEST(Formatos, NumbersAreReadInTheBrazilianConventionOnly) {
    EXPECT_EQ(Moeda::DeTexto("1.234,56"), M(12'345'600));
    EXPECT_EQ(Moeda::DeTexto(" -0,5 "), M(-5'000));
    EXPECT_EQ(Moeda::DeTexto("5.101"), M(51'010'000)) << "a point separates thousands";
    EXPECT_EQ(Moeda::DeTexto("7,"), M(70'000));
    EXPECT_EQ(Moeda::DeTexto(",5"), M(5'000));
    EXPECT_EQ(Moeda::DeTexto("+1.2.3."), M(1'230'000));
    for (const char* texto : {"", " ", "abc", "1,2,3", "1,2.3", "--1", "1 2", ".5", "R$ 1", "-",
                              ",", "1 ,5", "+-1", "1,5-", "\t1"}) {
        EXPECT_EQ(NumeroDe([&] { Moeda::DeTexto(texto); }), NumeroErro::TipoIncompativel) << texto;
    }
}

TEST(Formatos, FurtherDecimalsRoundHalvesToEven) {
    EXPECT_EQ(Moeda::DeTexto("0,00005"), M(0));
    EXPECT_EQ(Moeda::DeTexto("0,00015"), M(2));
    EXPECT_EQ(Moeda::DeTexto("0,000050001"), M(1));
    EXPECT_EQ(Moeda::DeTexto("-0,00015"), M(-2));
    EXPECT_EQ(Moeda::DeDouble(0.00005), M(0));
    EXPECT_EQ(Moeda::DeDouble(1.5), M(15'000));
}

// A text with more decimals than are kept reads as whole-number arithmetic rounds its digits.
TEST(Formatos, DecimalsAgreeWithArithmeticOnWholeNumbers) {
    std::mt19937_64 acaso(20030701);
    for (int vez = 0; vez < 20'000; ++vez) {
        const std::size_t casas = acaso() % 6;
        const std::size_t perdidas = acaso() % 4;
        const auto escala = static_cast<std::int64_t>(std::pow(10, perdidas));
        auto numero = static_cast<std::int64_t>(acaso() >> (1 + acaso() % 63));
        numero -= vez % 2 == 0 && perdidas > 0 ? numero % (escala / 2) : 0;  // many exact halves
        const std::int64_t resto = numero % escala;
        std::int64_t esperado = numero / escala;
        esperado += resto * 2 > escala || (resto * 2 == escala && esperado % 2 != 0) ? 1 : 0;

        std::string texto = std::to_string(numero);
        texto.insert(0, 12 - std::min<std::size_t>(12, texto.size()), '0');
        texto.insert(texto.size() - casas - perdidas, ",");
        for (std::size_t i = texto.find(','); vez % 3 == 0 && i > 3;) {
            texto.insert(i -= 3, ".");
        }
        const bool negativo = acaso() % 2 == 0;
        EXPECT_EQ(LerDecimal((negativo ? "-" : "") + texto, static_cast<int>(casas), "teste"),
                  negativo ? -esperado : esperado)
            << texto << " com " << casas;
    }
}

TEST(Formatos, CurrencyNeverWrapsAround) {
    EXPECT_EQ(Moeda::DeTexto("922.337.203.685.477,5807"), Maior);
    EXPECT_EQ(Moeda::DeTexto("-922.337.203.685.477,5808"), Menor);
    EXPECT_EQ(Moeda::DeTexto("-922.337.203.685.477,58085"), Menor) << "a half, to even";
    for (const auto& acao : std::initializer_list<std::function<void()>>{
             [&] { (void)(Maior + M(1)); },
             [&] { (void)(Menor - M(1)); },
             [&] { Moeda::DeTexto("922.337.203.685.477,5808"); },
             [&] { Moeda::DeTexto("922.337.203.685.477,58075"); },
             [&] { Moeda::DeTexto("-922.337.203.685.477,58086"); },
             [&] { Moeda::DeTexto(std::string(60, '9')); },
             [&] { Moeda::DeInteiro(1'000'000'000'000'000); },
             [&] { Moeda::DeDouble(1e15); },
             [&] { Moeda::DeDouble(std::numeric_limits<double>::infinity()); },
         }) {
        EXPECT_EQ(NumeroDe(acao), NumeroErro::Estouro);
    }
    EXPECT_EQ(NumeroDe([] { Moeda::DeDouble(std::numeric_limits<double>::quiet_NaN()); }),
              NumeroErro::TipoIncompativel);
}

TEST(Textos, AnErrorsTextIsUtf8WhateverItNames) {
    const auto descricao = [](std::string nome) {
        return Erro(NumeroErro::ArquivoNaoEncontrado, std::move(nome)).Descricao();
    };
    EXPECT_EQ(descricao("São João \u20AC\U0001F600"), "São João \u20AC\U0001F600");
    EXPECT_EQ(descricao("S\xE3o"), "S\uFFFDo");
    EXPECT_EQ(descricao("\xC0\x80|\xED\xA0\x80|\xF4\x90|\xC3"),
              "\uFFFD\uFFFD|\uFFFD\uFFFD\uFFFD|\uFFFD\uFFFD|\uFFFD");
}

TEST(Legivel, KeepsAMessageOnOneLineAndCutsAtALetter) {
    EXPECT_EQ(Legivel("a\nb\x1B[31m\x7F\xFF"), "a b [31m ?");
    EXPECT_EQ(Legivel("a\u0085b\u2028c\u2029d\u202Ee"), "a b c d e");
    EXPECT_EQ(Legivel("ação", 4), "ação");
    EXPECT_EQ(Legivel("ação", 3), "açã…");
}

}  // namespace
}  // namespace tarvo
