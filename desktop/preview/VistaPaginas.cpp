#include "desktop/preview/VistaPaginas.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "desktop/preview/CelulasDeTexto.h"

namespace tarvo {

namespace {

constexpr double Passos[] = {0.25, 0.33, 0.5, 0.67, 0.75, 0.9, 1.0, 1.1,
                             1.25, 1.5,  2.0, 3.0,  4.0,  5.0, 6.0, 8.0};

}  // namespace

VistaPaginas::VistaPaginas(QWidget* pai) : QAbstractScrollArea(pai) {
    setObjectName(QStringLiteral("paginas"));
    setAccessibleName(QStringLiteral("Páginas do relatório"));
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Dark);
    viewport()->setAutoFillBackground(true);
    viewport()->setCursor(Qt::IBeamCursor);
    verticalScrollBar()->setSingleStep(40);
    horizontalScrollBar()->setSingleStep(40);
}

void VistaPaginas::Mostrar(PintorPaginas* pintor, BuscaTexto* busca,
                           const CelulasDeTexto* celulas) {
    pintor_ = pintor;
    busca_ = busca;
    celulas_ = celulas;
    selecao_.reset();
    disposicao_.paginas = pintor != nullptr ? std::max(1, pintor->Paginas()) : 1;
    disposicao_.atual = 0;
    Dispor({0, {}, {DisposicaoPaginas::Margem, DisposicaoPaginas::Margem}});
    IrPara(0);
}

// --- magnification and layout

double VistaPaginas::PixelsPorPonto() const {
    return ampliacao_ * logicalDpiX() / 72.0;
}

void VistaPaginas::CalcularAmpliacao() {
    if (pintor_ == nullptr || ajuste_ == Ajuste::Livre) {
        return;
    }
    const QSizeF papel = pintor_->Pontos() * (logicalDpiX() / 72.0);
    const QSize livre =
        viewport()->size() - 2 * QSize(DisposicaoPaginas::Margem, DisposicaoPaginas::Margem);
    const double largura = livre.width() / papel.width();
    const double altura = livre.height() / papel.height();
    const double escolhida = ajuste_ == Ajuste::PaginaInteira ? std::min(largura, altura) : largura;
    ampliacao_ = std::clamp(escolhida, 0.05, AmpliacaoMaxima);
}

VistaPaginas::Ancora VistaPaginas::AncorarEm(const QPoint& ponto) const {
    const int pagina = disposicao_.PaginaEm(ponto.y() + Topo().y());
    const QRect area = RetanguloDaPagina(pagina);
    const QPoint dentro = ponto - area.topLeft();
    return {pagina,
            {dentro.x() / std::max(1.0, double(area.width())),
             dentro.y() / std::max(1.0, double(area.height()))},
            ponto};
}

void VistaPaginas::Dispor(const Ancora& ancora) {
    dispondo_ = true;
    const bool barraFixa = disposicao_.continuo || ajuste_ != Ajuste::PaginaInteira;
    setVerticalScrollBarPolicy(barraFixa ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(ajuste_ == Ajuste::Livre ? Qt::ScrollBarAsNeeded
                                                          : Qt::ScrollBarAlwaysOff);
    CalcularAmpliacao();
    const QSizeF papel = pintor_ != nullptr ? pintor_->Pontos() : QSizeF(595, 842);
    disposicao_.pagina = (papel * PixelsPorPonto()).toSize();
    disposicao_.janela = viewport()->size();
    const QSize resto = disposicao_.Conteudo() - viewport()->size();
    verticalScrollBar()->setPageStep(viewport()->height());
    horizontalScrollBar()->setPageStep(viewport()->width());
    verticalScrollBar()->setRange(0, std::max(0, resto.height()));
    horizontalScrollBar()->setRange(0, std::max(0, resto.width()));
    const QPoint lugar =
        disposicao_.Origem(ancora.pagina) + QPointF(ancora.fracao.x() * disposicao_.pagina.width(),
                                                    ancora.fracao.y() * disposicao_.pagina.height())
                                                .toPoint();
    Rolar(lugar - ancora.ponto);
    dispondo_ = false;
    viewport()->update();
    Avisar();
}

void VistaPaginas::Ajustar(Ajuste ajuste) {
    ajuste_ = ajuste;
    Dispor({Pagina(), {}, {DisposicaoPaginas::Margem, DisposicaoPaginas::Margem}});
}

void VistaPaginas::AmpliarEm(double ampliacao, const QPoint& ponto) {
    const Ancora ancora = AncorarEm(ponto);
    ajuste_ = Ajuste::Livre;
    ampliacao_ = std::clamp(ampliacao, AmpliacaoMinima, AmpliacaoMaxima);
    Dispor(ancora);
}

void VistaPaginas::Ampliar(double ampliacao) {
    AmpliarEm(ampliacao, viewport()->rect().center());
}

void VistaPaginas::AmpliarUmPasso(int sentido) {
    constexpr double Folga = 0.005;
    if (sentido > 0) {
        const auto* passo =
            std::upper_bound(std::begin(Passos), std::end(Passos), ampliacao_ + Folga);
        Ampliar(passo != std::end(Passos) ? *passo : AmpliacaoMaxima);
    } else {
        const auto* passo =
            std::lower_bound(std::begin(Passos), std::end(Passos), ampliacao_ - Folga);
        Ampliar(passo != std::begin(Passos) ? *(passo - 1) : AmpliacaoMinima);
    }
}

void VistaPaginas::DefinirContinuo(bool continuo) {
    const int pagina = Pagina();
    disposicao_.continuo = continuo;
    Dispor({pagina, {}, {DisposicaoPaginas::Margem, DisposicaoPaginas::Margem}});
    IrPara(pagina);
}

void VistaPaginas::resizeEvent(QResizeEvent*) {
    if (!dispondo_) {
        const int pagina = Pagina();
        Dispor(AncorarEm({viewport()->width() / 2, DisposicaoPaginas::Margem}));
        disposicao_.atual = pagina;
    }
}

// --- navigation

QPoint VistaPaginas::Topo() const {
    return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

void VistaPaginas::Rolar(const QPoint& topo) {
    horizontalScrollBar()->setValue(topo.x());
    verticalScrollBar()->setValue(topo.y());
}

void VistaPaginas::IrPara(int pagina) {
    const int alvo = std::clamp(pagina, 0, disposicao_.paginas - 1);
    dispondo_ = true;
    disposicao_.atual = alvo;
    Rolar({Topo().x(), disposicao_.Origem(alvo).y() - DisposicaoPaginas::Margem});
    dispondo_ = false;
    viewport()->update();
    Avisar();
}

bool VistaPaginas::PassarPagina(int sentido) {
    const int alvo = Pagina() + sentido;
    if (disposicao_.continuo || alvo < 0 || alvo >= disposicao_.paginas) {
        return false;
    }
    IrPara(alvo);
    if (sentido < 0) {
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    }
    return true;
}

void VistaPaginas::Revelar(int pagina, const QRectF& area) {
    if (!disposicao_.continuo && pagina != Pagina()) {
        IrPara(pagina);
    }
    const double escala = PixelsPorPonto();
    const QRect alvo = QRectF(area.topLeft() * escala, area.size() * escala)
                           .toAlignedRect()
                           .translated(disposicao_.Origem(pagina))
                           .adjusted(-40, -40, 40, 40);
    const QRect visivel(Topo(), viewport()->size());
    QPoint topo = Topo();
    if (alvo.top() < visivel.top() || alvo.bottom() > visivel.bottom()) {
        topo.setY(alvo.center().y() - visivel.height() / 2);
    }
    if (alvo.left() < visivel.left() || alvo.right() > visivel.right()) {
        topo.setX(alvo.center().x() - visivel.width() / 2);
    }
    dispondo_ = true;
    Rolar(topo);
    dispondo_ = false;
    disposicao_.atual = pagina;
    viewport()->update();
    Avisar();
}

void VistaPaginas::scrollContentsBy(int, int) {
    if (!dispondo_) {
        if (disposicao_.continuo) {
            disposicao_.atual = disposicao_.PaginaPrincipal(Topo().y());
        }
        Avisar();
    }
    viewport()->update();
}

void VistaPaginas::wheelEvent(QWheelEvent* evento) {
    const int giro = evento->angleDelta().y();
    if (evento->modifiers() == Qt::ControlModifier) {
        AmpliarEm(ampliacao_ * std::pow(1.2, giro / 120.0), evento->position().toPoint());
        evento->accept();
        return;
    }
    auto* barra = verticalScrollBar();
    const bool noFim = giro < 0 ? barra->value() == barra->maximum() : barra->value() == 0;
    if (disposicao_.continuo || giro == 0 || !noFim) {
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
    if (evento->key() != Qt::Key_Space) {
        QAbstractScrollArea::keyPressEvent(evento);
        return;
    }
    // A screenful, and then the next page.
    const int sentido = (evento->modifiers() & Qt::ShiftModifier) != 0 ? -1 : 1;
    auto* barra = verticalScrollBar();
    const bool noFim = sentido > 0 ? barra->value() == barra->maximum() : barra->value() == 0;
    if (!noFim || !PassarPagina(sentido)) {
        barra->triggerAction(sentido > 0 ? QScrollBar::SliderPageStepAdd
                                         : QScrollBar::SliderPageStepSub);
    }
}

// --- selection

QPointF VistaPaginas::PontoNaPagina(int pagina, const QPoint& ponto) const {
    return QPointF(ponto - RetanguloDaPagina(pagina).topLeft()) / PixelsPorPonto();
}

void VistaPaginas::Selecionar(std::optional<Selecao> selecao) {
    if (selecao || selecao_) {
        selecao_ = selecao;
        viewport()->update();
        Avisar();
    }
}

void VistaPaginas::mousePressEvent(QMouseEvent* evento) {
    if (evento->button() == Qt::LeftButton && pintor_ != nullptr) {
        const QPoint ponto = evento->position().toPoint();
        Selecionar(std::nullopt);
        const int pagina = disposicao_.PaginaEm(ponto.y() + Topo().y());
        inicioSelecao_ = PontoNaPagina(pagina, ponto);
        disposicao_.atual = pagina;
        Avisar();
    }
}

void VistaPaginas::mouseMoveEvent(QMouseEvent* evento) {
    if ((evento->buttons() & Qt::LeftButton) == 0 || celulas_ == nullptr) {
        return;
    }
    const QPointF ponto = PontoNaPagina(Pagina(), evento->position().toPoint());
    const QRectF area = QRectF(inicioSelecao_, ponto).normalized();
    constexpr double Intencao = 3;  // points; less is a click
    if (selecao_ || area.width() + area.height() > Intencao) {
        Selecionar(Selecao{Pagina(), area.adjusted(0, 0, 0.01, 0.01)});
    }
}

void VistaPaginas::mouseDoubleClickEvent(QMouseEvent* evento) {
    if (celulas_ == nullptr) {
        return;
    }
    const QPointF ponto = PontoNaPagina(Pagina(), evento->position().toPoint());
    const QRectF area(ponto, QSizeF(0.01, 0.01));
    if (!celulas_->Caixas(Pagina(), area).empty()) {
        Selecionar(Selecao{Pagina(), area});
    }
}

void VistaPaginas::SelecionarPagina() {
    if (pintor_ != nullptr) {
        Selecionar(Selecao{Pagina(), QRectF({}, pintor_->Pontos())});
    }
}

QString VistaPaginas::TextoSelecionado() const {
    return selecao_ && celulas_ != nullptr ? celulas_->Copiar(selecao_->pagina, selecao_->area)
                                           : QString();
}

void VistaPaginas::Avisar() const {
    if (aoMudar) {
        aoMudar();
    }
}

}  // namespace tarvo
