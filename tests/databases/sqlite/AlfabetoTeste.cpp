// SPDX-License-Identifier: MIT
#include "databases/sqlite/Alfabeto.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace tarvo::sqlite {

namespace {

int Sinal(int n) {
    return static_cast<int>(n > 0) - static_cast<int>(n < 0);
}

TEST(Alfabeto, OrdersAsPortugueseDoes) {
    const std::array<std::string, 20> ordem{
        "",          "-1",        ".5",         "1.01", "1.1",     "10",    "2",
        "A",         "á",         "ab",         "água", "agudo",   "cabo",  "caboclo",
        "Conceicao", "conceiÇÃO", "conceição ", "Pará", "PARAÍBA", "Paraná"};
    const Alfabeto alfabeto;
    for (std::size_t i = 0; i < ordem.size(); ++i) {
        for (std::size_t j = 0; j < ordem.size(); ++j) {
            EXPECT_EQ(Sinal(alfabeto.Comparar(ordem[i], ordem[j])),
                      Sinal(static_cast<int>(i) - static_cast<int>(j)))
                << ordem[i] << " / " << ordem[j];
        }
    }
}

TEST(Alfabeto, OnlyLetterCaseDoesNotTellTextsApart) {
    const Alfabeto alfabeto;
    EXPECT_EQ(alfabeto.Comparar("ÁGUA doce", "água DOCE"), 0);
    EXPECT_EQ(alfabeto.Comparar("Isenta", "iSENTA"), 0);
    EXPECT_NE(alfabeto.Comparar("Nº", "No"), 0);
    EXPECT_NE(alfabeto.Comparar("agua", "água"), 0);
    EXPECT_NE(alfabeto.Comparar("\u212A", "k"), 0) << "the Kelvin sign is no ASCII letter";
    EXPECT_NE(alfabeto.Comparar("a", "a\x01"), 0) << "characters without weight count too";
}

// The short cut for ASCII must order as the alphabet's tables do, which the appended letter forces.
TEST(Alfabeto, TheShortCutForAsciiGivesTheSameOrder) {
    const Alfabeto alfabeto;
    for (char a = ' '; a <= '~'; ++a) {
        for (char b = ' '; b <= '~'; ++b) {
            const std::string x{'5', a, '.'};
            const std::string y{'5', b, '.'};
            EXPECT_EQ(Sinal(alfabeto.Comparar(x, y)), Sinal(alfabeto.Comparar(x + "é", y + "é")))
                << x << " / " << y;
        }
    }
}

}  // namespace

}  // namespace tarvo::sqlite
