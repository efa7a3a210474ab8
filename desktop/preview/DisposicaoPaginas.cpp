// SPDX-License-Identifier: MIT
#include "desktop/preview/DisposicaoPaginas.h"

#include <algorithm>

namespace tarvo {

QSize DisposicaoPaginas::Conteudo() const {
    const int fileiras = continuo ? (paginas + colunas - 1) / colunas : 1;
    return {colunas * (pagina.width() + Espaco) - Espaco + 2 * Margem,
            fileiras * (pagina.height() + Espaco) - Espaco + 2 * Margem};
}

QPoint DisposicaoPaginas::Origem(int indice) const {
    const QSize folga = janela - Conteudo();
    const int x = Margem + std::max(0, folga.width() / 2);
    const int y = Margem + std::max(0, folga.height() / 2);
    const int fileira = continuo ? indice / colunas : 0;
    return {x + indice % colunas * (pagina.width() + Espaco),
            y + fileira * (pagina.height() + Espaco)};
}

int DisposicaoPaginas::PaginaEm(const QPoint& ponto) const {
    const auto passos = [](int distancia, int lado) {
        return std::max(0, (distancia + Espaco / 2) / (lado + Espaco));
    };
    const QPoint primeira = Origem(0);
    const int fileira = continuo ? passos(ponto.y() - primeira.y(), pagina.height()) * colunas
                                 : PrimeiraDaFileira(atual);
    const int coluna = std::min(colunas - 1, passos(ponto.x() - primeira.x(), pagina.width()));
    return std::min(std::min(fileira, PrimeiraDaFileira(paginas - 1)) + coluna, paginas - 1);
}

int DisposicaoPaginas::PaginaPrincipal() const {
    if (!continuo) {
        return atual;
    }
    const int primeira = PrimeiraDaFileira(PaginaEm(topo));
    const int fundo = topo.y() + janela.height();
    const int inicio = Origem(primeira).y();
    const int visivel = std::min(inicio + pagina.height(), fundo) - std::max(inicio, topo.y());
    const bool principal = 2 * visivel >= std::min(pagina.height(), janela.height());
    const int achada = principal || primeira + colunas >= paginas ? primeira : primeira + colunas;
    return PrimeiraDaFileira(atual) == achada ? atual : achada;
}

std::pair<int, int> DisposicaoPaginas::Visiveis() const {
    const int ultima = PrimeiraDaFileira(PaginaNaJanela({0, janela.height()})) + colunas - 1;
    return {PrimeiraDaFileira(PaginaNaJanela({0, 0})), std::min(ultima, paginas - 1)};
}

QRect DisposicaoPaginas::NoConteudo(int indice, const QRectF& area) const {
    return QRectF(area.topLeft() * pixelsPorPonto, area.size() * pixelsPorPonto)
        .toAlignedRect()
        .translated(Origem(indice));
}

DisposicaoPaginas::Ancora DisposicaoPaginas::AncorarEm(const QPoint& ponto) const {
    const int indice = PaginaNaJanela(ponto);
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
