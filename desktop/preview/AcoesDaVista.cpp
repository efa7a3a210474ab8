// SPDX-License-Identifier: MIT
#include "desktop/preview/AcoesDaVista.h"

#include "desktop/Ligacao.h"
#include "desktop/preview/AcoesDaVisualizacao.h"
#include "desktop/preview/VistaPaginas.h"

namespace tarvo {

AcoesDaVista::AcoesDaVista(const AcoesDaVisualizacao& acoes, VistaPaginas& vista)
    : acoes_(acoes), vista_(vista) {
    const auto ligar = [this](Acao acao, auto fazer) {
        Ligar(&acoes_[acao], &QAction::triggered, &vista_, fazer);
    };
    ligar(Acao::SelecionarPagina,
          [this] { vista_.SelecionarPaginas(vista_.Pagina(), vista_.Pagina()); });
    ligar(Acao::SelecionarTudo, [this] { vista_.SelecionarPaginas(0, vista_.Paginas() - 1); });
    const auto ampliarUmPasso = [this](int sentido) {
        vista_.Ampliar(Ampliacao::Passo(vista_.AmpliacaoAtual(), sentido));
    };
    ligar(Acao::Ampliar, [ampliarUmPasso] { ampliarUmPasso(1); });
    ligar(Acao::Reduzir, [ampliarUmPasso] { ampliarUmPasso(-1); });
    ligar(Acao::TamanhoReal, [this] { vista_.Ampliar(1.0); });
    ligar(Acao::PaginaInteira, [this] { vista_.Ajustar(Ajuste::PaginaInteira); });
    ligar(Acao::LarguraDaPagina, [this] { vista_.Ajustar(Ajuste::LarguraDaPagina); });
    ligar(Acao::Continuo, [this] { vista_.DefinirContinuo(!vista_.Continuo()); });
    ligar(Acao::LadoALado, [this] { vista_.DefinirLadoALado(!vista_.LadoALado()); });
    ligar(Acao::CursorDeLeitura,
          [this] { vista_.Leitor().DefinirCursor(!vista_.Leitor().Cursor()); });
    ligar(Acao::TelaSeguinte, [this] { vista_.RolarTela(1); });
    ligar(Acao::TelaAnterior, [this] { vista_.RolarTela(-1); });
    ligar(Acao::Primeira, [this] { vista_.IrPara(0); });
    ligar(Acao::Anterior, [this] { vista_.IrAVizinha(-1); });
    ligar(Acao::Proxima, [this] { vista_.IrAVizinha(1); });
    ligar(Acao::Ultima, [this] { vista_.IrPara(vista_.Paginas() - 1); });
}

void AcoesDaVista::Atualizar() const {
    const int pagina = vista_.Pagina();
    const int ultima = vista_.Paginas() - 1;
    for (const auto acao : {Acao::Primeira, Acao::Anterior}) {
        acoes_[acao].setEnabled(pagina > 0);
    }
    for (const auto acao : {Acao::Proxima, Acao::Ultima}) {
        acoes_[acao].setEnabled(pagina < ultima);
    }
    acoes_[Acao::Ampliar].setEnabled(vista_.AmpliacaoAtual() < Ampliacao::Maxima);
    acoes_[Acao::Reduzir].setEnabled(vista_.AmpliacaoAtual() > Ampliacao::Minima);
    acoes_[Acao::PaginaInteira].setChecked(vista_.AjusteAtual() == Ajuste::PaginaInteira);
    acoes_[Acao::LarguraDaPagina].setChecked(vista_.AjusteAtual() == Ajuste::LarguraDaPagina);
    acoes_[Acao::Continuo].setChecked(vista_.Continuo());
    acoes_[Acao::LadoALado].setChecked(vista_.LadoALado());
    acoes_[Acao::CursorDeLeitura].setChecked(vista_.Leitor().Cursor().has_value());
    acoes_[Acao::Copiar].setEnabled(!vista_.Selecao().Vazia());
}

}  // namespace tarvo
