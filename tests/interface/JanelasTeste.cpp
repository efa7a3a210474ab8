// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <thread>

#include "tests/interface/DesktopFalso.h"
#include "tests/interface/Exemplo.h"

namespace tarvo::teste {
namespace {

using testing::ElementsAre;

class Janelas : public ComExemplo {
  protected:
    DesktopFalso& desktop = ODesktopFalso();
    Posse banco = Abrir();

    Janelas() { desktop = {}; }
    ~Janelas() override { EXPECT_EQ(desktop.abertas.size(), 0U) << "a window outlived its object"; }
};

TEST_F(Janelas, ShowsHidesAndPrintsADocument) {
    const auto objeto = Criar("RelatorioPagamentos");
    EXPECT_EQ(tarvo_ocultar(objeto), 0);
    ASSERT_EQ(tarvo_construir(objeto, banco, IE, DRQ), 0);
    EXPECT_EQ(tarvo_exibir(objeto), 0) << tarvo_erro_texto();
    EXPECT_EQ(tarvo_imprimir(objeto), 0);
    EXPECT_EQ(tarvo_imprimir_em(objeto, "sala"), 0);
    EXPECT_THAT(desktop.pedidos,
                ElementsAre("Exibir Relatório de Pagamentos", "Imprimir Relatório de Pagamentos",
                            "Imprimir Relatório de Pagamentos em sala"));
    std::size_t abertas = 0;
    EXPECT_EQ(tarvo_aguardar_janelas(0, &abertas), 0);
    EXPECT_EQ(abertas, 1U);
    EXPECT_EQ(tarvo_ocultar(objeto), 0);
    EXPECT_EQ(tarvo_aguardar_janelas(0, &abertas), 0);
    EXPECT_EQ(abertas, 0U);
    EXPECT_EQ(tarvo_exibir(objeto), 0);
}

TEST_F(Janelas, ExecutarBuildsAndShowsWhatTheUserChooses) {
    const auto relatorios = Criar("Relatorios");
    EXPECT_EQ(tarvo_definir_ref_atual(relatorios, "07/2003"), 0);
    desktop.usuario = [](frmImpressaoRelatorios& dialogo) {
        EXPECT_TRUE(dialogo.lstSelecao.Selecionada(17));
        dialogo.lstSelecao.Selecionar(1, true);
        dialogo.cmdVisualizar();
    };
    ASSERT_EQ(tarvo_executar(relatorios, banco, IE, DRQ, 1 << 17), 0) << tarvo_erro_texto();
    EXPECT_THAT(desktop.pedidos,
                ElementsAre("Exibir Relatório de Resumo dos CFOPs para as Operações / Prestações "
                            "de Entrada (Grupos 1, 2 e 3)",
                            "Exibir Relatório de Pagamentos"));
    EXPECT_EQ(desktop.abertas.size(), 2U);
    EXPECT_EQ(tarvo_executar(relatorios, banco, IE, 999, 0), 3021);
}

TEST_F(Janelas, WithoutAScreenOnlyPrintingWorks) {
    desktop.temTela = false;
    const auto objeto = Criar("RelatorioPagamentos");
    const auto relatorios = Criar("Relatorios");
    EXPECT_EQ(tarvo_exibir(objeto), 445);
    EXPECT_EQ(tarvo_executar(relatorios, banco, IE, DRQ, 0), 445);
    EXPECT_EQ(tarvo_imprimir(objeto), 0) << tarvo_erro_texto();
}

// The host's own event handlers may call while the dialog is open.
TEST_F(Janelas, CallsFromInsideTheDialogCannotPullAwayWhatItUses) {
    const auto relatorios = Criar("Relatorios");
    auto outro = Criar("RelatorioCadastro");
    desktop.usuario = [&](frmImpressaoRelatorios& dialogo) {
        EXPECT_EQ(tarvo_liberar(relatorios), 20006);
        EXPECT_EQ(tarvo_liberar(banco), 20006);
        EXPECT_EQ(tarvo_executar(relatorios, banco, IE, DRQ, 0), 20006);
        EXPECT_EQ(tarvo_construir_cadastro(outro, banco, IE), 20006);
        EXPECT_EQ(tarvo_exibir(outro), 0);
        outro.Liberar();
        dialogo.lstSelecao.Selecionar(0, true);
        dialogo.cmdImprimir();
    };
    ASSERT_EQ(tarvo_executar(relatorios, banco, IE, DRQ, 0), 0) << tarvo_erro_texto();
    EXPECT_EQ(desktop.pedidos.back(), "Imprimir Relatório de Cadastro do Contribuinte");
}

TEST_F(Janelas, BelongToOneThread) {
    const auto comJanela = Criar("RelatorioPagamentos");
    const auto semJanela = Criar("RelatorioPagamentos");
    const auto relatorios = Criar("Relatorios");
    ASSERT_EQ(tarvo_exibir(comJanela), 0);
    std::thread([&] {
        EXPECT_EQ(tarvo_exibir(semJanela), 445);
        EXPECT_EQ(tarvo_imprimir(semJanela), 445);
        EXPECT_EQ(tarvo_imprimir_em(semJanela, ""), 445);
        EXPECT_EQ(tarvo_executar(relatorios, banco, IE, DRQ, 0), 445);
        EXPECT_EQ(tarvo_aguardar_janelas(0, nullptr), 445);
        EXPECT_EQ(tarvo_ocultar(comJanela), 445);
        EXPECT_EQ(tarvo_liberar(comJanela), 445);
        // What needs no window is free.
        EXPECT_EQ(tarvo_construir(comJanela, banco, IE, DRQ), 0);
    }).join();
    EXPECT_EQ(desktop.abertas.size(), 1U);
}

}  // namespace
}  // namespace tarvo::teste
