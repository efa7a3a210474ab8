// SPDX-License-Identifier: MIT
#include "desktop/preview/AcessoDoNo.h"

#include <QWindow>
#include <algorithm>

#include "desktop/preview/VistaPaginas.h"

namespace tarvo {

using namespace Qt::StringLiterals;

bool AcessoDoNo::isValid() const {
    return dona_.Vista().Leitor().Leitura() == leitura_;
}

QWindow* AcessoDoNo::window() const {
    return dona_.Vista().window()->windowHandle();
}

QAccessibleInterface* AcessoDoNo::parent() const {
    return no_ == 0 ? QAccessible::queryAccessibleInterface(&dona_.Vista()) : Outro(Onde().pai);
}

QAccessibleInterface* AcessoDoNo::child(int indice) const {
    return indice >= 0 && indice < childCount()
               ? Outro(Onde().filhos[static_cast<std::size_t>(indice)])
               : nullptr;
}

int AcessoDoNo::indexOfChild(const QAccessibleInterface* filho) const {
    const auto* no = dynamic_cast<const AcessoDoNo*>(filho);
    const auto& filhos = Onde().filhos;
    const auto achado = no == nullptr || no->pagina_ != pagina_
                            ? filhos.end()
                            : std::find(filhos.begin(), filhos.end(), no->no_);
    return achado == filhos.end() ? -1 : static_cast<int>(achado - filhos.begin());
}

QAccessibleInterface* AcessoDoNo::childAt(int x, int y) const {
    for (int i = 0; i < childCount(); ++i) {
        if (child(i)->rect().contains(x, y)) {
            return child(i);
        }
    }
    return nullptr;
}

QRect AcessoDoNo::rect() const {
    return dona_.Vista().NaTela(pagina_, no_ == 0 ? std::nullopt : std::optional(Onde().lugar));
}

QString AcessoDoNo::text(QAccessible::Text qual) const {
    if (qual != QAccessible::Name) {
        return {};
    }
    return no_ == 0 ? u"Página %1 de %2"_s.arg(pagina_ + 1).arg(leitura_->Paginas()) : Onde().texto;
}

QAccessible::State AcessoDoNo::state() const {
    QAccessible::State estado;
    estado.readOnly = true;
    estado.focusable = !Onde().texto.isEmpty();
    const auto& cursor = dona_.Vista().Leitor().Cursor();
    estado.focused = cursor && cursor->pagina == pagina_ && cursor->no == no_;
    estado.offscreen = !dona_.Vista().rect().intersects(
        {dona_.Vista().mapFromGlobal(rect().topLeft()), rect().size()});
    return estado;
}

QAccessibleInterface* AcessoDoNo::AcessoDoElemento(std::uint32_t elemento) const {
    const auto onde = leitura_->OndeEsta(elemento);
    return onde ? dona_.Acesso(onde->pagina, onde->no) : nullptr;
}

QAccessible::Role AcessoDoNo::role() const {
    switch (Onde().tipo) {
        case TipoElemento::Documento:
            return QAccessible::Section;
        case TipoElemento::Titulo:
        case TipoElemento::Secao:
            return QAccessible::Heading;
        case TipoElemento::Paragrafo:
            return QAccessible::Paragraph;
        case TipoElemento::Tabela:
            return QAccessible::Table;
        case TipoElemento::LinhaDeTabela:
            return QAccessible::Row;
        case TipoElemento::CelulaDeTitulo:
            return Leitura().IntitulaLinha(Onde().elemento) ? QAccessible::RowHeader
                                                            : QAccessible::ColumnHeader;
        case TipoElemento::Celula:
            return QAccessible::Cell;
        case TipoElemento::Figura:
            return QAccessible::Graphic;
        default:
            return QAccessible::StaticText;
    }
}

}  // namespace tarvo
