// SPDX-License-Identifier: MIT
#include "desktop/preview/LeitorDaVista.h"

#include "data/Procura.h"
#include "desktop/preview/AcessoDaVista.h"
#include "desktop/preview/DocumentoPronto.h"
#include "desktop/preview/LeituraDoDocumento.h"
#include "desktop/preview/VistaPaginas.h"

namespace tarvo {

void LeitorDaVista::Mostrar(const DocumentoPronto* documento) {
    documento_ = documento;
    leitura_.reset();
    cursor_.reset();
}

const std::shared_ptr<LeituraDoDocumento>& LeitorDaVista::Leitura() const {
    if (leitura_ == nullptr && documento_ != nullptr) {
        leitura_ = std::make_shared<LeituraDoDocumento>(*documento_);
    }
    return leitura_;
}

void LeitorDaVista::DefinirCursor(bool ligado) {
    cursor_.reset();
    if (ligado && documento_ != nullptr) {
        LevarA(PrimeiroTexto(*Leitura(), vista_.Pagina()));
    }
}

void LeitorDaVista::LevarA(const LugarDeLeitura& lugar) {
    cursor_ = lugar;
    const auto& no = Leitura()->Pagina(lugar.pagina).at(static_cast<std::size_t>(lugar.no));
    if (!no.texto.isEmpty()) {
        vista_.SelecionarArea(lugar.pagina, no.lugar);
        AcessoDaVista::DizerCursor(vista_);
    }
}

bool LeitorDaVista::Andar(int tecla) {
    const std::pair<int, Passo> passos[] = {{Qt::Key_Right, Passo::Seguinte},
                                            {Qt::Key_Left, Passo::Anterior},
                                            {Qt::Key_Down, Passo::Abaixo},
                                            {Qt::Key_Up, Passo::Acima}};
    const auto* const passo = Achar(passos, tecla, &std::pair<int, Passo>::first);
    if (!cursor_ || passo == nullptr) {
        return false;
    }
    // The user may have gone to another page meanwhile.
    LevarA(cursor_->pagina == vista_.Pagina() ? tarvo::Andar(*Leitura(), *cursor_, passo->second)
                                              : PrimeiroTexto(*Leitura(), vista_.Pagina()));
    return true;
}

}  // namespace tarvo
