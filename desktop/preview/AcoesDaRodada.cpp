// SPDX-License-Identifier: MIT
#include "desktop/preview/AcoesDaRodada.h"

#include <QTimer>

#include "desktop/Ligacao.h"
#include "desktop/preview/AcoesDaVisualizacao.h"
#include "desktop/preview/GrupoDePrevias.h"
#include "desktop/preview/JanelaVisualizacao.h"

namespace tarvo {

void LigarAcoesDaRodada(const AcoesDaVisualizacao& acoes, JanelaVisualizacao& janela,
                        GrupoDePrevias& grupo) {
    const auto ligar = [&](Acao acao, auto fazer) {
        Ligar(&acoes[acao], &QAction::triggered, &janela, fazer);
    };
    ligar(Acao::ImprimirTodos, [&] { grupo.ImprimirTodos(&janela); });
    ligar(Acao::SalvarTodos, [&] { grupo.SalvarTodos(&janela); });
    ligar(Acao::SalvarCadaUm, [&] { grupo.SalvarCadaUm(&janela); });
    // The windows are changed once the menu that asked for it is closed.
    ligar(Acao::EmAbas, [&] {
        QTimer::singleShot(0, &janela, [&] {
            Proteger(&janela, [&] { grupo.DefinirEmAbas(!grupo.EmAbas(), janela); });
        });
    });
    const auto pedir = [&](Acao acao, Pedido pedido) {
        ligar(acao, [&grupo, pedido] { grupo.Pedir(pedido); });
    };
    pedir(Acao::Atualizar, Pedido::Atualizar);
    pedir(Acao::DeclaracaoAnterior, Pedido::DeclaracaoAnterior);
    pedir(Acao::ProximaDeclaracao, Pedido::ProximaDeclaracao);
}

void AtualizarAcoesDaRodada(const AcoesDaVisualizacao& acoes, const GrupoDePrevias& grupo) {
    for (const auto acao : {Acao::ImprimirTodos, Acao::SalvarTodos, Acao::SalvarCadaUm}) {
        acoes[acao].setEnabled(grupo.Abertas() > 1);
    }
    for (const auto acao : {Acao::Atualizar, Acao::DeclaracaoAnterior, Acao::ProximaDeclaracao}) {
        acoes[acao].setVisible(grupo.Atende());
    }
    acoes[Acao::EmAbas].setChecked(grupo.EmAbas());
}

}  // namespace tarvo
