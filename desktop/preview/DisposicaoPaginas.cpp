#include "desktop/preview/DisposicaoPaginas.h"

#include <algorithm>

namespace tarvo {

QSize DisposicaoPaginas::Conteudo() const {
    const int empilhadas = continuo ? paginas : 1;
    return {pagina.width() + 2 * Margem,
            empilhadas * (pagina.height() + Espaco) - Espaco + 2 * Margem};
}

QPoint DisposicaoPaginas::Origem(int indice) const {
    const QSize total = Conteudo();
    const int x = Margem + std::max(0, (janela.width() - total.width()) / 2);
    const int y = Margem + std::max(0, (janela.height() - total.height()) / 2);
    return {x, continuo ? y + indice * (pagina.height() + Espaco) : y};
}

int DisposicaoPaginas::PaginaEm(int y) const {
    if (!continuo) {
        return atual;
    }
    const int indice = (y - Origem(0).y() + Espaco / 2) / (pagina.height() + Espaco);
    return std::clamp(indice, 0, paginas - 1);
}

int DisposicaoPaginas::PaginaPrincipal() const {
    const int primeira = PaginaEm(topo.y());
    const int fundo = topo.y() + janela.height();
    const int inicio = Origem(primeira).y();
    const int visivel = std::min(inicio + pagina.height(), fundo) - std::max(inicio, topo.y());
    const bool principal = 2 * visivel >= std::min(pagina.height(), janela.height());
    return principal || primeira + 1 >= paginas || !continuo ? primeira : primeira + 1;
}

std::pair<int, int> DisposicaoPaginas::Visiveis() const {
    return {PaginaNaJanela(0), PaginaNaJanela(janela.height())};
}

QRect DisposicaoPaginas::NoConteudo(int indice, const QRectF& area) const {
    return QRectF(area.topLeft() * pixelsPorPonto, area.size() * pixelsPorPonto)
        .toAlignedRect()
        .translated(Origem(indice));
}

DisposicaoPaginas::Ancora DisposicaoPaginas::AncorarEm(const QPoint& ponto) const {
    const int indice = PaginaNaJanela(ponto.y());
    const QPointF dentro = ponto - NaJanela(indice).topLeft();
    return {indice,
            {dentro.x() / std::max(1, pagina.width()), dentro.y() / std::max(1, pagina.height())},
            ponto};
}

QPoint DisposicaoPaginas::TopoPara(const Ancora& ancora) const {
    const QPointF dentro(ancora.fracao.x() * pagina.width(), ancora.fracao.y() * pagina.height());
    return Origem(ancora.pagina) + dentro.toPoint() - ancora.ponto;
}

}  // namespace tarvo
