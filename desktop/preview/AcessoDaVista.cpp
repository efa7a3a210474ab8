// SPDX-License-Identifier: MIT
#include "desktop/preview/AcessoDaVista.h"

#include "desktop/preview/AcessoDaCelula.h"
#include "desktop/preview/AcessoDaTabela.h"
#include "desktop/preview/AcessoDoNo.h"
#include "desktop/preview/LeituraDoDocumento.h"
#include "desktop/preview/VistaPaginas.h"

namespace tarvo {

namespace {

QAccessibleInterface* Fabricar(const QString&, QObject* objeto) {
    auto* vista = dynamic_cast<VistaPaginas*>(objeto);
    return vista != nullptr ? new AcessoDaVista(*vista) : nullptr;
}

}  // namespace

void AcessoDaVista::Instalar() {
    QAccessible::installFactory(Fabricar);
}

void AcessoDaVista::DizerCursor(VistaPaginas& vista) {
    if (auto* acesso = QAccessible::queryAccessibleInterface(&vista)) {
        if (auto* foco = acesso->focusChild()) {
            QAccessibleEvent evento(foco, QAccessible::Focus);
            QAccessible::updateAccessibility(&evento);
        }
    }
}

AcessoDaVista::AcessoDaVista(VistaPaginas& vista)
    : QAccessibleWidget(&vista, QAccessible::Document), vista_(vista) {}

void AcessoDaVista::Esquecer() const {
    for (const auto& [onde, id] : std::exchange(acessos_, {})) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

int AcessoDaVista::childCount() const {
    const auto& leitura = vista_.Leitor().Leitura();
    return leitura == nullptr ? 0 : leitura->Paginas();
}

QAccessibleInterface* AcessoDaVista::focusChild() const {
    const auto& cursor = vista_.Leitor().Cursor();
    return cursor ? Acesso(cursor->pagina, cursor->no) : nullptr;
}

int AcessoDaVista::indexOfChild(const QAccessibleInterface* filho) const {
    const auto* no = dynamic_cast<const AcessoDoNo*>(filho);
    return no != nullptr && no->Indice() == 0 ? no->Pagina() : -1;
}

QAccessibleInterface* AcessoDaVista::childAt(int x, int y) const {
    return childCount() == 0 ? nullptr : child(vista_.PaginaNaTela({x, y}));
}

QAccessibleInterface* AcessoDaVista::Acesso(int pagina, int no) const {
    if (leitura_ != vista_.Leitor().Leitura()) {
        Esquecer();
        leitura_ = vista_.Leitor().Leitura();
    }
    const auto [achado, novo] = acessos_.try_emplace({pagina, no});
    if (novo) {
        const auto tipo = leitura_->Pagina(pagina).at(static_cast<std::size_t>(no)).tipo;
        QAccessibleInterface* acesso = nullptr;
        if (tipo == TipoElemento::Tabela) {
            acesso = new AcessoDaTabela(*this, leitura_, pagina, no);
        } else if (ECelula(tipo)) {
            acesso = new AcessoDaCelula(*this, leitura_, pagina, no);
        } else {
            acesso = new AcessoDoNo(*this, leitura_, pagina, no);
        }
        achado->second = QAccessible::registerAccessibleInterface(acesso);
    }
    return QAccessible::accessibleInterface(achado->second);
}

}  // namespace tarvo
