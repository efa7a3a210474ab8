// SPDX-License-Identifier: MIT
#include "desktop/preview/AcessoDaCelula.h"

#include <QStringList>
#include <algorithm>

namespace tarvo {

void* AcessoDaCelula::interface_cast(QAccessible::InterfaceType tipo) {
    return tipo == QAccessible::TableCellInterface
               ? static_cast<QAccessibleTableCellInterface*>(this)
               : nullptr;
}

QString AcessoDaCelula::text(QAccessible::Text qual) const {
    return qual == QAccessible::Description ? Descricao() : AcessoDoNo::text(qual);
}

QList<QAccessibleInterface*> AcessoDaCelula::columnHeaderCells() const {
    QList<QAccessibleInterface*> celulas;
    for (const auto titulo : Leitura().TitulosDaColuna(Tabela().elemento, columnIndex())) {
        if (titulo == Onde().elemento) {
            break;  // over a heading stand only those above it
        }
        if (auto* acesso = AcessoDoElemento(titulo)) {
            celulas << acesso;
        }
    }
    return celulas;
}

QList<QAccessibleInterface*> AcessoDaCelula::rowHeaderCells() const {
    const auto titulo = Leitura().QueIntitula(Em(Onde().pai).elemento);
    auto* acesso = titulo && *titulo != Onde().elemento ? AcessoDoElemento(*titulo) : nullptr;
    return acesso == nullptr ? QList<QAccessibleInterface*>()
                             : QList<QAccessibleInterface*>{acesso};
}

int AcessoDaCelula::rowIndex() const {
    const auto& linhas = Tabela().filhos;
    return static_cast<int>(std::find(linhas.begin(), linhas.end(), Onde().pai) - linhas.begin());
}

QString AcessoDaCelula::Descricao() const {
    QStringList partes;
    for (auto* titulo : columnHeaderCells() + rowHeaderCells()) {
        partes << titulo->text(QAccessible::Name);
    }
    partes.removeAll(QString());
    return partes.join(QStringLiteral(", "));
}

}  // namespace tarvo
