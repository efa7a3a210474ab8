// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <chrono>
#include <clocale>

#include "tests/interface/Exemplo.h"

namespace tarvo::teste {
namespace {

using testing::HasSubstr;
using testing::Not;

using DesktopReal = ComExemplo;

TEST_F(DesktopReal, IsLoadedOnlyWhenSomethingIsShown) {
    const auto banco = Abrir();
    auto objeto = Criar("RelatorioPagamentos");
    ASSERT_EQ(tarvo_construir(objeto, banco, IE, DRQ), 0);
    Exportar(objeto, TARVO_PDF);
    EXPECT_EQ(tarvo_ocultar(objeto), 0);
    EXPECT_EQ(tarvo_aguardar_janelas(-1, nullptr), 0);
    EXPECT_THAT(ConteudoDe("/proc/self/maps"), Not(HasSubstr("libQt")));
    EXPECT_THAT(ConteudoDe("/proc/self/maps"), Not(HasSubstr("libcups")));
    EXPECT_THAT(ConteudoDe("/proc/self/maps"), Not(HasSubstr("libpq")));

    ASSERT_EQ(tarvo_exibir(objeto), 0) << tarvo_erro_texto();
    EXPECT_THAT(ConteudoDe("/proc/self/maps"), HasSubstr("libQt6Widgets"));
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    std::size_t abertas = 0;
    const auto inicio = std::chrono::steady_clock::now();
    EXPECT_EQ(tarvo_aguardar_janelas(200, &abertas), 0);
    EXPECT_GE(std::chrono::steady_clock::now() - inicio, std::chrono::milliseconds(190));
    EXPECT_EQ(abertas, 1U);
    EXPECT_EQ(tarvo_ocultar(objeto), 0);
    EXPECT_EQ(tarvo_aguardar_janelas(-1, &abertas), 0);
    EXPECT_EQ(abertas, 0U);
    EXPECT_EQ(tarvo_exibir(objeto), 0);
    objeto.Liberar();
    EXPECT_EQ(tarvo_aguardar_janelas(-1, &abertas), 0) << "the window closed with its object";
}

}  // namespace
}  // namespace tarvo::teste
