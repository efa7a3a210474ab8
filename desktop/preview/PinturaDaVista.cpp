// SPDX-License-Identifier: MIT
#include "desktop/preview/PinturaDaVista.h"

#include "desktop/preview/BuscaTexto.h"
#include "desktop/preview/SelecaoDeCelulas.h"

namespace tarvo {

namespace {

constexpr int LadoDoRecorte = 1536;  // device pixels
constexpr QColor CorDoAchado(255, 235, 90);
constexpr QColor CorDoAchadoAtual(255, 160, 40);

}  // namespace

PinturaDaVista::PinturaDaVista(QPainter& pintura, const DisposicaoPaginas& disposicao,
                               double densidade)
    : pintura_(pintura), disposicao_(disposicao), densidade_(densidade) {
    pintura_.setRenderHint(QPainter::SmoothPixmapTransform);
}

void PinturaDaVista::Pintar(PintorPaginas& pintor, BuscaTexto* busca,
                            const SelecaoDeCelulas& selecao, const QColor& corDaSelecao) {
    std::vector<Recorte> faltam;
    const auto [primeira, ultima] = disposicao_.Visiveis();
    for (int pagina = primeira; pagina <= ultima; ++pagina) {
        PintarPagina(pagina, pintor, faltam);
        PintarMarcas(pagina, busca, selecao, corDaSelecao);
    }
    // The wishes of the next page, for the scrolling that is likely to come.
    if (faltam.empty() && ultima + 1 < disposicao_.paginas) {
        const QRect inteira(QPoint(), disposicao_.pagina);
        faltam = Recortes(ultima + 1, inteira.intersected(QRect({}, disposicao_.janela)));
    }
    pintor.PedirParaVista(std::move(faltam));
}

std::vector<Recorte> PinturaDaVista::Recortes(int pagina, const QRect& visivel) const {
    const QSize escala = (QSizeF(disposicao_.pagina) * densidade_).toSize();
    const QRect pixels(QPoint(), escala);
    const QRect alvo =
        QRectF(QPointF(visivel.topLeft()) * densidade_, QSizeF(visivel.size()) * densidade_)
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

void PinturaDaVista::PintarPagina(int pagina, const PintorPaginas& pintor,
                                  std::vector<Recorte>& faltam) {
    const QRect area = disposicao_.NaJanela(pagina);
    const QRect visivel = area.intersected(QRect({}, disposicao_.janela));
    if (visivel.isEmpty()) {
        return;
    }
    pintura_.fillRect(area.translated(3, 3), QColor(0, 0, 0, 60));
    pintura_.fillRect(area, Qt::white);
    for (const auto& recorte : Recortes(pagina, visivel.translated(-area.topLeft()))) {
        if (const QImage* imagem = pintor.Pronta(recorte)) {
            const QRectF alvo(QPointF(recorte.area.topLeft()) / densidade_ + area.topLeft(),
                              QSizeF(recorte.area.size()) / densidade_);
            pintura_.drawImage(alvo, *imagem);
        } else {
            faltam.push_back(recorte);
        }
    }
}

void PinturaDaVista::PintarMarcas(int pagina, BuscaTexto* busca, const SelecaoDeCelulas& selecao,
                                  const QColor& corDaSelecao) {
    pintura_.save();
    pintura_.translate(disposicao_.NaJanela(pagina).topLeft());
    pintura_.scale(disposicao_.pixelsPorPonto, disposicao_.pixelsPorPonto);
    pintura_.setPen(Qt::NoPen);
    pintura_.setCompositionMode(QPainter::CompositionMode_Multiply);
    const auto pintar = [&](const QList<QPolygonF>& marcas, const QColor& cor) {
        pintura_.setBrush(cor);
        for (const auto& marca : marcas) {
            pintura_.drawRect(marca.boundingRect().adjusted(-1, -1, 1, 1));
        }
    };
    if (busca != nullptr && busca->Total() > 0) {
        const bool temAtual = busca->Atual()->pagina == pagina;
        const auto atual = temAtual ? busca->MarcaAtual() : QList<QPolygonF>();
        auto marcas = busca->Marcas(pagina);
        marcas.removeIf([&](const QPolygonF& marca) { return atual.contains(marca); });
        pintar(marcas, CorDoAchado);
        pintar(atual, CorDoAchadoAtual);
    }
    pintura_.setBrush(corDaSelecao);
    for (const auto& caixa : selecao.Caixas(pagina)) {
        pintura_.drawRect(caixa);
    }
    pintura_.restore();
}

}  // namespace tarvo
