#include <QPainter>

#include "desktop/preview/BuscaTexto.h"
#include "desktop/preview/CelulasDeTexto.h"
#include "desktop/preview/VistaPaginas.h"

// How the view paints its pages: in parts of limited size, so that the greatest magnification
// costs no more memory than the window shows.
namespace tarvo {

namespace {

constexpr int LadoDoRecorte = 1536;  // device pixels
constexpr QColor CorDoAchado(255, 235, 90);
constexpr QColor CorDoAchadoAtual(255, 160, 40);

}  // namespace

QRect VistaPaginas::RetanguloDaPagina(int pagina) const {
    return {disposicao_.Origem(pagina) - Topo(), disposicao_.pagina};
}

std::pair<int, int> VistaPaginas::Visiveis() const {
    const int topo = Topo().y();
    return {disposicao_.PaginaEm(topo), disposicao_.PaginaEm(topo + viewport()->height())};
}

std::vector<Recorte> VistaPaginas::Recortes(int pagina, const QRect& visivel) const {
    const double densidade = devicePixelRatioF();
    const QSize escala = (QSizeF(disposicao_.pagina) * densidade).toSize();
    const QRect pixels(QPoint(), escala);
    const QRect alvo =
        QRectF(QPointF(visivel.topLeft()) * densidade, QSizeF(visivel.size()) * densidade)
            .toAlignedRect()
            .intersected(pixels);
    std::vector<Recorte> recortes;
    for (int y = alvo.top() / LadoDoRecorte * LadoDoRecorte; y <= alvo.bottom();
         y += LadoDoRecorte) {
        for (int x = alvo.left() / LadoDoRecorte * LadoDoRecorte; x <= alvo.right();
             x += LadoDoRecorte) {
            recortes.push_back(
                {pagina, escala, QRect(x, y, LadoDoRecorte, LadoDoRecorte).intersected(pixels)});
        }
    }
    return recortes;
}

void VistaPaginas::PintarPagina(QPainter& pintura, int pagina, std::vector<Recorte>& faltam) {
    const QRect area = RetanguloDaPagina(pagina);
    const QRect visivel = area.intersected(viewport()->rect());
    if (visivel.isEmpty()) {
        return;
    }
    pintura.fillRect(area.translated(3, 3), QColor(0, 0, 0, 60));
    pintura.fillRect(area, Qt::white);
    const double densidade = devicePixelRatioF();
    for (const auto& recorte : Recortes(pagina, visivel.translated(-area.topLeft()))) {
        if (const QImage* imagem = pintor_->Pronta(recorte)) {
            const QRectF alvo(QPointF(recorte.area.topLeft()) / densidade + area.topLeft(),
                              QSizeF(recorte.area.size()) / densidade);
            pintura.drawImage(alvo, *imagem);
        } else {
            faltam.push_back(recorte);
        }
    }
    PintarMarcas(pintura, pagina, area);
}

void VistaPaginas::PintarMarcas(QPainter& pintura, int pagina, const QRect& area) {
    pintura.save();
    pintura.translate(area.topLeft());
    pintura.scale(PixelsPorPonto(), PixelsPorPonto());
    pintura.setPen(Qt::NoPen);
    pintura.setCompositionMode(QPainter::CompositionMode_Multiply);
    const auto pintar = [&](const QList<QPolygonF>& marcas, const QColor& cor) {
        pintura.setBrush(cor);
        for (const auto& marca : marcas) {
            pintura.drawRect(marca.boundingRect().adjusted(-1, -1, 1, 1));
        }
    };
    if (busca_ != nullptr && busca_->Total() > 0) {
        const bool temAtual = busca_->Atual()->pagina == pagina;
        const auto atual = temAtual ? busca_->MarcaAtual() : QList<QPolygonF>();
        auto marcas = busca_->Marcas(pagina);
        marcas.removeIf([&](const QPolygonF& marca) { return atual.contains(marca); });
        pintar(marcas, CorDoAchado);
        pintar(atual, CorDoAchadoAtual);
    }
    if (selecao_ && selecao_->pagina == pagina && celulas_ != nullptr) {
        pintura.setBrush(palette().color(QPalette::Highlight).lighter(170));
        for (const auto& caixa : celulas_->Caixas(pagina, selecao_->area)) {
            pintura.drawRect(caixa);
        }
    }
    pintura.restore();
}

void VistaPaginas::paintEvent(QPaintEvent*) {
    if (pintor_ == nullptr) {
        return;
    }
    QPainter pintura(viewport());
    pintura.setRenderHint(QPainter::SmoothPixmapTransform);
    std::vector<Recorte> faltam;
    const auto [primeira, ultima] = Visiveis();
    for (int pagina = primeira; pagina <= ultima; ++pagina) {
        PintarPagina(pintura, pagina, faltam);
    }
    // The wishes of the next page, for the scrolling that is likely to come.
    if (faltam.empty() && ultima + 1 < disposicao_.paginas) {
        const QRect inteira(QPoint(), disposicao_.pagina);
        const auto seguintes = Recortes(ultima + 1, inteira.intersected(viewport()->rect()));
        faltam.insert(faltam.end(), seguintes.begin(), seguintes.end());
    }
    pintor_->PedirParaVista(std::move(faltam));
}

}  // namespace tarvo
