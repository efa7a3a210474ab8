// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <stdexcept>

#include "dispatch/Catalogo.h"
#include "dispatch/frmImpressaoRelatorios.h"

namespace tarvo {
namespace {

using testing::ElementsAre;

// The dialog as the dispatcher offers it, with every entry of the catalogue.
struct DialogoCompleto : frmImpressaoRelatorios {
    DialogoCompleto() {
        for (const auto& entrada : Catalogo()) {
            lstSelecao.Acrescentar(entrada.rotulo);
        }
    }
};

std::vector<std::size_t> Marcadas(const ListaSelecao& lista) {
    std::vector<std::size_t> marcadas;
    for (std::size_t i = 0; i < lista.Quantidade(); ++i) {
        if (lista.Selecionada(i)) {
            marcadas.push_back(lista.Relatorio(i));
        }
    }
    return marcadas;
}

TEST(Dialogo, OpensWithTheEighteenEntriesAndNothingChosen) {
    const DialogoCompleto dialogo;
    EXPECT_EQ(dialogo.lngModoSaida, 0);
    ASSERT_EQ(dialogo.lstSelecao.Quantidade(), 18U);
    EXPECT_EQ(dialogo.lstSelecao.Rotulo(0), "01 - Cadastro do Contribuinte");
    EXPECT_EQ(dialogo.lstSelecao.Rotulo(17), "17 - Pagamentos");
    EXPECT_THAT(Marcadas(dialogo.lstSelecao), ElementsAre());
}

TEST(Dialogo, SelectAllClearsOnlyWhenEverythingIsSelected) {
    DialogoCompleto dialogo;
    dialogo.lstSelecao.Selecionar(0, true);
    for (const auto marcadas : {18U, 0U, 18U}) {
        dialogo.cmdSelecionarTodos();
        EXPECT_EQ(Marcadas(dialogo.lstSelecao).size(), marcadas);
    }
    dialogo.lstSelecao.Remover(15);
    for (const auto marcadas : {0U, 17U}) {
        dialogo.cmdSelecionarTodos();
        EXPECT_EQ(Marcadas(dialogo.lstSelecao).size(), marcadas);
    }
}

TEST(Dialogo, EntriesBelowARemovedOneKeepLabelMarkAndReport) {
    DialogoCompleto dialogo;
    auto& lista = dialogo.lstSelecao;
    lista.Selecionar(15, true);
    lista.Selecionar(17, true);
    lista.Focar(16);
    lista.Remover(15);
    ASSERT_EQ(lista.Quantidade(), 17U);
    EXPECT_EQ(lista.Rotulo(15), "16 - Registros de Exportação");
    EXPECT_EQ(lista.Relatorio(15), 16U);
    EXPECT_THAT(Marcadas(lista), ElementsAre(17U));
    EXPECT_EQ(lista.Rotulo(lista.Foco()), "16 - Registros de Exportação");
    EXPECT_THROW(lista.Selecionar(17, true), std::out_of_range);
    EXPECT_THROW(lista.Focar(17), std::out_of_range);
}

using Botao = void (frmImpressaoRelatorios::*)();

struct JanelaQueAperta : JanelaSelecao {
    void ExibirModal(frmImpressaoRelatorios& dialogo) override {
        EXPECT_TRUE(dialogo.Visivel());
        (dialogo.*botao)();
        visivelDepois = dialogo.Visivel();
    }
    Botao botao = nullptr;
    bool visivelDepois = false;
};

TEST(Dialogo, OutputButtonsRecordTheModeAndHideTheDialog) {
    const struct {
        Botao botao;
        std::int32_t modo;
        bool visivel;
    } casos[] = {{&frmImpressaoRelatorios::cmdVisualizar, 1, false},
                 {&frmImpressaoRelatorios::cmdImprimir, 2, false},
                 {&frmImpressaoRelatorios::cmdSelecionarTodos, 0, true}};
    for (const auto& caso : casos) {
        frmImpressaoRelatorios dialogo;
        JanelaQueAperta janela;
        janela.botao = caso.botao;
        dialogo.ExibirModal(janela);
        EXPECT_EQ(dialogo.lngModoSaida, caso.modo);
        EXPECT_EQ(janela.visivelDepois, caso.visivel);
        EXPECT_FALSE(dialogo.Visivel());
    }
}

}  // namespace
}  // namespace tarvo
