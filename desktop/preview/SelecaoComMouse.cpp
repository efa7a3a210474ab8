// SPDX-License-Identifier: MIT
#include "desktop/preview/SelecaoComMouse.h"

#include <QAbstractScrollArea>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

#include "desktop/preview/DisposicaoPaginas.h"
#include "desktop/preview/SelecaoDeCelulas.h"

namespace tarvo {

SelecaoComMouse::SelecaoComMouse(QAbstractScrollArea& vista, DisposicaoPaginas& disposicao,
                                 SelecaoDeCelulas& selecao)
    : vista_(vista), disposicao_(disposicao), selecao_(selecao) {
    vista_.viewport()->installEventFilter(this);
}

bool SelecaoComMouse::eventFilter(QObject*, QEvent* evento) {
    switch (evento->type()) {
        case QEvent::MouseButtonPress:
            Apertar(*static_cast<const QMouseEvent*>(evento));
            return true;
        case QEvent::MouseMove:
            Mover(*static_cast<const QMouseEvent*>(evento));
            return true;
        case QEvent::MouseButtonRelease:
            rolagem_.stop();
            return true;
        case QEvent::MouseButtonDblClick:
            SelecionarCelula(static_cast<const QMouseEvent*>(evento)->position().toPoint());
            return true;
        default:
            return false;
    }
}

void SelecaoComMouse::Apertar(const QMouseEvent& evento) {
    const bool menu = evento.button() == Qt::RightButton;
    if (evento.button() != Qt::LeftButton && !menu) {
        return;
    }
    const QPoint ponto = evento.position().toPoint();
    const int pagina = disposicao_.PaginaNaJanela(ponto);
    const QPointF lugar = disposicao_.NaPagina(pagina, ponto);
    // What is selected stays so for the menu that is asked for on it.
    const auto caixas = selecao_.Caixas(pagina);
    if (menu && std::ranges::any_of(caixas, [&](const auto& c) { return c.contains(lugar); })) {
        return;
    }
    disposicao_.atual = pagina;
    selecao_.Comecar(pagina, lugar);
    aoMudar();
}

void SelecaoComMouse::Mover(const QMouseEvent& evento) {
    if ((evento.buttons() & Qt::LeftButton) == 0) {
        return;
    }
    const QPoint ponto = evento.position().toPoint();
    Estender(ponto);
    if (vista_.viewport()->rect().contains(ponto)) {
        rolagem_.stop();
    } else {
        rolagem_.start(50, this);
    }
}

void SelecaoComMouse::timerEvent(QTimerEvent*) {
    const QPoint ponto = vista_.viewport()->mapFromGlobal(QCursor::pos());
    const int alem =
        ponto.y() < 0 ? ponto.y() : std::max(0, ponto.y() - vista_.viewport()->height());
    auto& barra = *vista_.verticalScrollBar();
    barra.setValue(barra.value() + alem);
    Estender(ponto);
}

void SelecaoComMouse::Estender(const QPoint& ponto) {
    const int pagina = disposicao_.PaginaNaJanela(ponto);
    if (selecao_.Estender(pagina, disposicao_.NaPagina(pagina, ponto))) {
        aoMudar();
    }
}

void SelecaoComMouse::SelecionarCelula(const QPoint& ponto) {
    const int pagina = disposicao_.PaginaNaJanela(ponto);
    if (selecao_.SelecionarCelula(pagina, disposicao_.NaPagina(pagina, ponto))) {
        aoMudar();
    }
}

}  // namespace tarvo
