// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <functional>
#include <stdexcept>

#include "dispatch/Catalogo.h"
#include "dispatch/frmImpressaoRelatorios.h"

namespace tarvo {
namespace {

// With every entry of the catalogue, and the window that shows it.
class Dialogo : public testing::Test, public JanelaSelecao, protected frmImpressaoRelatorios {
  protected:
    Dialogo() {
        for (const auto& entrada : Catalogo()) {
            lstSelecao.Acrescentar(entrada.rotulo);
        }
    }
    void ExibirModal(frmImpressaoRelatorios& /*este*/) override {
        EXPECT_TRUE(Visivel());
        usuario();
    }
    void Mostrar(std::function<void()> oUsuario) {
        usuario = std::move(oUsuario);
        frmImpressaoRelatorios::ExibirModal(*this);
        EXPECT_FALSE(Visivel());
    }
    std::function<void()> usuario;
};

TEST_F(Dialogo, SelectAllClearsOnlyWhenEverythingIsSelected) {
    lstSelecao.Selecionar(0, true);
    for (const auto marcadas : {0x3FFFFU, 0U, 0x3FFFFU}) {
        cmdSelecionarTodos();
        EXPECT_EQ(lstSelecao.Marcadas(), marcadas);
    }
    lstSelecao.Remover(15);
    for (const auto marcadas : {0U, 0x37FFFU}) {
        cmdSelecionarTodos();
        EXPECT_EQ(lstSelecao.Marcadas(), marcadas);
    }
}

TEST_F(Dialogo, EntriesBelowARemovedOneKeepLabelMarkAndReport) {
    EXPECT_EQ(lstSelecao.Rotulo(0), "01 - Cadastro do Contribuinte");
    lstSelecao.Selecionar(15, true);
    lstSelecao.Selecionar(17, true);
    lstSelecao.Focar(16);
    lstSelecao.Remover(15);
    ASSERT_EQ(lstSelecao.Quantidade(), 17U);
    EXPECT_EQ(lstSelecao.Rotulo(15), "16 - Registros de Exportação");
    EXPECT_EQ(lstSelecao.Relatorio(15), 16U);
    EXPECT_EQ(lstSelecao.Marcadas(), 1U << 17);
    EXPECT_EQ(lstSelecao.Foco(), 15U);
    EXPECT_THROW(lstSelecao.Selecionar(17, true), std::out_of_range);
    EXPECT_THROW(lstSelecao.Focar(17), std::out_of_range);
}

TEST_F(Dialogo, OutputButtonsRecordTheModeAndHideTheDialog) {
    Mostrar([&] {
        cmdSelecionarTodos();
        EXPECT_TRUE(Visivel());
        EXPECT_EQ(lngModoSaida, 0);
    });
    for (const auto& [botao, modo] : {std::pair{&frmImpressaoRelatorios::cmdVisualizar, 1},
                                      {&frmImpressaoRelatorios::cmdImprimir, 2}}) {
        Mostrar([&, aperta = botao] {
            (this->*aperta)();
            EXPECT_FALSE(Visivel());
        });
        EXPECT_EQ(lngModoSaida, modo);
    }
}

}  // namespace
}  // namespace tarvo
