// SPDX-License-Identifier: MIT
#include "desktop/preview/AcoesDaVista.h"

#include "desktop/Ligacao.h"
#include "desktop/preview/AcoesDaVisualizacao.h"
#include "desktop/preview/VistaPaginas.h"

namespace tarvo {

void LigarAcoesDaVista(const AcoesDaVisualizacao& acoes, VistaPaginas& vista) {
    const auto ligar = [&](Acao acao, auto fazer) {
        Ligar(&acoes[acao], &QAction::triggered, &vista, fazer);
    };
    ligar(Acao::SelecionarPagina,
          [&vista] { vista.SelecionarPaginas(vista.Pagina(), vista.Pagina()); });
    ligar(Acao::SelecionarTudo, [&vista] { vista.SelecionarPaginas(0, vista.Paginas() - 1); });
    const auto ampliarUmPasso = [&vista](int sentido) {
        vista.Ampliar(Ampliacao::Passo(vista.AmpliacaoAtual(), sentido));
    };
    ligar(Acao::Ampliar, [ampliarUmPasso] { ampliarUmPasso(1); });
    ligar(Acao::Reduzir, [ampliarUmPasso] { ampliarUmPasso(-1); });
    ligar(Acao::TamanhoReal, [&vista] { vista.Ampliar(1.0); });
    ligar(Acao::PaginaInteira, [&vista] { vista.Ajustar(Ajuste::PaginaInteira); });
    ligar(Acao::LarguraDaPagina, [&vista] { vista.Ajustar(Ajuste::LarguraDaPagina); });
    ligar(Acao::Continuo, [&vista] { vista.DefinirContinuo(!vista.Continuo()); });
    ligar(Acao::LadoALado, [&vista] { vista.DefinirLadoALado(!vista.LadoALado()); });
    ligar(Acao::CursorDeLeitura,
          [&vista] { vista.Leitor().DefinirCursor(!vista.Leitor().Cursor()); });
    ligar(Acao::TelaSeguinte, [&vista] { vista.RolarTela(1); });
    ligar(Acao::TelaAnterior, [&vista] { vista.RolarTela(-1); });
    ligar(Acao::Primeira, [&vista] { vista.IrPara(0); });
    ligar(Acao::Anterior, [&vista] { vista.IrAVizinha(-1); });
    ligar(Acao::Proxima, [&vista] { vista.IrAVizinha(1); });
    ligar(Acao::Ultima, [&vista] { vista.IrPara(vista.Paginas() - 1); });
}

void AtualizarAcoesDaVista(const AcoesDaVisualizacao& acoes, const VistaPaginas& vista) {
    const int pagina = vista.Pagina();
    const int ultima = vista.Paginas() - 1;
    for (const auto acao : {Acao::Primeira, Acao::Anterior}) {
        acoes[acao].setEnabled(pagina > 0);
    }
    for (const auto acao : {Acao::Proxima, Acao::Ultima}) {
        acoes[acao].setEnabled(pagina < ultima);
    }
    acoes[Acao::Ampliar].setEnabled(vista.AmpliacaoAtual() < Ampliacao::Maxima);
    acoes[Acao::Reduzir].setEnabled(vista.AmpliacaoAtual() > Ampliacao::Minima);
    acoes[Acao::PaginaInteira].setChecked(vista.AjusteAtual() == Ajuste::PaginaInteira);
    acoes[Acao::LarguraDaPagina].setChecked(vista.AjusteAtual() == Ajuste::LarguraDaPagina);
    acoes[Acao::Continuo].setChecked(vista.Continuo());
    acoes[Acao::LadoALado].setChecked(vista.LadoALado());
    acoes[Acao::CursorDeLeitura].setChecked(vista.Leitor().Cursor().has_value());
    acoes[Acao::Copiar].setEnabled(!vista.Selecao().Vazia());
}

}  // namespace tarvo
