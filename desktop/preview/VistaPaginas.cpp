// SPDX-License-Identifier: MIT
#include "desktop/preview/VistaPaginas.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "desktop/preview/AcessoDaVista.h"
#include "desktop/preview/DocumentoPronto.h"
#include "desktop/preview/PinturaDaVista.h"

namespace tarvo {

namespace {

constexpr int PassoDaBarra = 40;  // pixels; a screenful is as much shorter than the view
constexpr QSizeF A4(595, 842);    // points

}  // namespace

VistaPaginas::VistaPaginas(QWidget* pai) : QAbstractScrollArea(pai) {
    AcessoDaVista::Instalar();  // before anybody asks for the view's interface
    setObjectName(QStringLiteral("paginas"));
    setAccessibleName(QStringLiteral("Páginas do relatório"));
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Dark);
    viewport()->setAutoFillBackground(true);
    viewport()->setCursor(Qt::IBeamCursor);
    verticalScrollBar()->setSingleStep(PassoDaBarra);
    horizontalScrollBar()->setSingleStep(PassoDaBarra);
    mouse_.aoMudar = [this] { Mudou(); };
}

void VistaPaginas::Mostrar(PintorPaginas* pintor, BuscaTexto* busca,
                           const DocumentoPronto* documento) {
    pintor_ = pintor;
    busca_ = busca;
    selecao_.Mostrar(documento != nullptr ? &documento->celulas : nullptr);
    leitor_.Mostrar(documento);
    disposicao_.paginas = pintor != nullptr ? std::max(1, pintor->Paginas()) : 1;
    disposicao_.atual = 0;
    Redispor();
}

LugarNaVista VistaPaginas::Lugar() const {
    return {Pagina(), {horizontalScrollBar()->value(), verticalScrollBar()->value()}};
}

void VistaPaginas::Ir(const LugarNaVista& lugar) {
    IrPara(lugar.pagina);
    if (Pagina() == lugar.pagina) {
        Rolar(lugar.topo);
        Mudou();
    }
}

// --- magnification and layout

void VistaPaginas::Dispor(const DisposicaoPaginas::Ancora& ancora) {
    const QScopedValueRollback nossa(dispondo_, true);
    const bool barraFixa = disposicao_.continuo || ajuste_ != Ajuste::PaginaInteira;
    setVerticalScrollBarPolicy(barraFixa ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(ajuste_ == Ajuste::Livre ? Qt::ScrollBarAsNeeded
                                                          : Qt::ScrollBarAlwaysOff);
    const QSizeF papel = pintor_ != nullptr ? pintor_->Pontos() : A4;
    const double pixels = logicalDpiX() / 72.0;
    disposicao_.janela = viewport()->size();
    if (pintor_ != nullptr && ajuste_ != Ajuste::Livre) {
        constexpr int Margens = 2 * DisposicaoPaginas::Margem;
        const int colunas = disposicao_.colunas;
        const QSizeF fileira(papel.width() * colunas, papel.height());
        const int entrePaginas = (colunas - 1) * DisposicaoPaginas::Espaco;
        ampliacao_ = Ampliacao::Ajustada(
            ajuste_, fileira * pixels, disposicao_.janela - QSize(Margens + entrePaginas, Margens));
    }
    disposicao_.pixelsPorPonto = ampliacao_ * pixels;
    disposicao_.pagina = (papel * disposicao_.pixelsPorPonto).toSize();
    const QSize resto = disposicao_.Conteudo() - disposicao_.janela;
    verticalScrollBar()->setPageStep(disposicao_.janela.height());
    horizontalScrollBar()->setPageStep(disposicao_.janela.width());
    verticalScrollBar()->setRange(0, std::max(0, resto.height()));
    horizontalScrollBar()->setRange(0, std::max(0, resto.width()));
    Rolar(disposicao_.TopoPara(ancora));
    Mudou();
}

void VistaPaginas::Ajustar(Ajuste ajuste) {
    ajuste_ = ajuste;
    Dispor(DisposicaoPaginas::NoComecoDe(Pagina()));
}

void VistaPaginas::AmpliarEm(double ampliacao, const QPoint& ponto) {
    const auto ancora = disposicao_.AncorarEm(ponto);
    ajuste_ = Ajuste::Livre;
    ampliacao_ = std::clamp(ampliacao, Ampliacao::Minima, Ampliacao::Maxima);
    Dispor(ancora);
}

void VistaPaginas::Ampliar(double ampliacao) {
    AmpliarEm(ampliacao, viewport()->rect().center());
}

void VistaPaginas::DefinirContinuo(bool continuo) {
    disposicao_.continuo = continuo;
    Redispor();
}

void VistaPaginas::DefinirLadoALado(bool ladoALado) {
    ladoALado_ = ladoALado;
    Redispor();
}

void VistaPaginas::Redispor() {
    const int pagina = Pagina();
    disposicao_.colunas = ladoALado_ ? std::min(2, Paginas()) : 1;
    Dispor(DisposicaoPaginas::NoComecoDe(pagina));
    IrPara(pagina);
}

void VistaPaginas::resizeEvent(QResizeEvent*) {
    if (!dispondo_) {
        const int pagina = Pagina();
        Dispor(disposicao_.AncorarEm({viewport()->width() / 2, DisposicaoPaginas::Margem}));
        disposicao_.atual = pagina;
    }
}

// --- navigation

void VistaPaginas::Rolar(const QPoint& topo) {
    horizontalScrollBar()->setValue(topo.x());
    verticalScrollBar()->setValue(topo.y());
    disposicao_.topo = {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

void VistaPaginas::IrPara(int pagina) {
    const QScopedValueRollback nossa(dispondo_, true);
    disposicao_.atual = std::clamp(pagina, 0, disposicao_.paginas - 1);
    Rolar({disposicao_.topo.x(),
           disposicao_.Origem(disposicao_.atual).y() - DisposicaoPaginas::Margem});
    Mudou();
}

bool VistaPaginas::NoFim(int sentido) const {
    const auto& barra = *verticalScrollBar();
    return sentido > 0 ? barra.value() == barra.maximum() : barra.value() == 0;
}

void VistaPaginas::IrAVizinha(int sentido) {
    IrPara(disposicao_.PrimeiraDaFileira(Pagina()) + sentido * disposicao_.colunas);
}

bool VistaPaginas::PassarPagina(int sentido) {
    const int alvo = disposicao_.PrimeiraDaFileira(Pagina()) + sentido * disposicao_.colunas;
    if (disposicao_.continuo || alvo < 0 || alvo >= disposicao_.paginas) {
        return false;
    }
    IrPara(alvo);
    if (sentido < 0) {
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    }
    return true;
}

void VistaPaginas::RolarTela(int sentido) {
    if (NoFim(sentido) && PassarPagina(sentido)) {
        return;
    }
    auto& barra = *verticalScrollBar();
    const int tela = std::max(PassoDaBarra, barra.pageStep() - PassoDaBarra);
    barra.setValue(barra.value() + sentido * tela);
}

void VistaPaginas::Revelar(int pagina, const QRectF& area) {
    if (!disposicao_.continuo) {
        IrPara(pagina);
    }
    const QRect alvo = disposicao_.NoConteudo(pagina, area).adjusted(-40, -40, 40, 40);
    const QRect visivel(disposicao_.topo, disposicao_.janela);
    QPoint topo = disposicao_.topo;
    if (alvo.top() < visivel.top() || alvo.bottom() > visivel.bottom()) {
        topo.setY(alvo.center().y() - visivel.height() / 2);
    }
    if (alvo.left() < visivel.left() || alvo.right() > visivel.right()) {
        topo.setX(alvo.center().x() - visivel.width() / 2);
    }
    const QScopedValueRollback nossa(dispondo_, true);
    Rolar(topo);
    disposicao_.atual = pagina;
    Mudou();
}

void VistaPaginas::scrollContentsBy(int, int) {
    disposicao_.topo = {horizontalScrollBar()->value(), verticalScrollBar()->value()};
    if (dispondo_) {
        return;
    }
    if (disposicao_.continuo) {
        disposicao_.atual = disposicao_.PaginaPrincipal();
    }
    Mudou();
}

void VistaPaginas::wheelEvent(QWheelEvent* evento) {
    const int giro = evento->angleDelta().y();
    if (evento->modifiers() == Qt::ControlModifier) {
        AmpliarEm(ampliacao_ * std::pow(1.2, giro / 120.0), evento->position().toPoint());
        evento->accept();
        return;
    }
    if (disposicao_.continuo || giro == 0 || !NoFim(-giro)) {
        rodaAcumulada_ = 0;
        QAbstractScrollArea::wheelEvent(evento);
        return;
    }
    rodaAcumulada_ += giro;
    if (std::abs(rodaAcumulada_) >= 120) {
        PassarPagina(rodaAcumulada_ < 0 ? 1 : -1);
        rodaAcumulada_ = 0;
    }
    evento->accept();
}

void VistaPaginas::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Space) {
        RolarTela((evento->modifiers() & Qt::ShiftModifier) != 0 ? -1 : 1);
    } else if (!leitor_.Andar(evento->key())) {
        QAbstractScrollArea::keyPressEvent(evento);
    }
}

// --- reading and selection

QRect VistaPaginas::NaTela(int pagina, const std::optional<QRectF>& area) const {
    const QRect lugar = area ? disposicao_.NoConteudo(pagina, *area).translated(-disposicao_.topo)
                             : disposicao_.NaJanela(pagina);
    return {viewport()->mapToGlobal(lugar.topLeft()), lugar.size()};
}

int VistaPaginas::PaginaNaTela(const QPoint& ponto) const {
    return disposicao_.PaginaNaJanela(viewport()->mapFromGlobal(ponto));
}

void VistaPaginas::SelecionarArea(int pagina, const QRectF& area) {
    selecao_.SelecionarArea(pagina, area);
    Revelar(pagina, area);
}

void VistaPaginas::SelecionarPaginas(int primeira, int ultima) {
    if (pintor_ != nullptr) {
        selecao_.SelecionarPaginas(primeira, ultima, pintor_->Pontos());
        Mudou();
    }
}

void VistaPaginas::paintEvent(QPaintEvent*) {
    if (pintor_ != nullptr) {
        QPainter pintura(viewport());
        PinturaDaVista(pintura, disposicao_, devicePixelRatioF())
            .Pintar(*pintor_, busca_, selecao_, palette().color(QPalette::Highlight).lighter(170));
    }
}

void VistaPaginas::Mudou() {
    viewport()->update();
    if (aoMudar) {
        aoMudar();
    }
}

}  // namespace tarvo
