// SPDX-License-Identifier: MIT
#include "desktop/preview/AcessoDaTabela.h"

namespace tarvo {

void* AcessoDaTabela::interface_cast(QAccessible::InterfaceType tipo) {
    return tipo == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                               : nullptr;
}

QAccessibleInterface* AcessoDaTabela::cellAt(int linha, int coluna) const {
    auto* acesso = child(linha);
    if (acesso == nullptr) {
        return nullptr;
    }
    int melhor = -1;
    for (const int celula : Em(Onde().filhos[static_cast<std::size_t>(linha)]).filhos) {
        if (melhor < 0 || Leitura().Coluna(Em(celula).elemento) <= coluna) {
            melhor = celula;
        }
    }
    return melhor < 0 ? acesso : Outro(melhor);
}

QString AcessoDaTabela::columnDescription(int coluna) const {
    return Leitura().TituloDaColuna(Onde().elemento, coluna);
}

QString AcessoDaTabela::rowDescription(int linha) const {
    return linha >= 0 && linha < rowCount()
               ? Leitura().TituloDaLinha(
                     Em(Onde().filhos[static_cast<std::size_t>(linha)]).elemento)
               : QString();
}

}  // namespace tarvo
