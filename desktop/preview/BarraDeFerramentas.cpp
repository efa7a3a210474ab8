// SPDX-License-Identifier: MIT
#include "desktop/preview/BarraDeFerramentas.h"

#include <QLabel>
#include <QToolButton>

#include "desktop/preview/AcoesDaVisualizacao.h"
#include "desktop/preview/CampoAmpliacao.h"
#include "desktop/preview/CampoPagina.h"
#include "desktop/preview/VistaPaginas.h"

namespace tarvo {

using namespace Qt::StringLiterals;

BarraDeFerramentas::BarraDeFerramentas(QWidget* pai, const AcoesDaVisualizacao& acoes,
                                       VistaPaginas& vista)
    : QToolBar(u"Ferramentas"_s, pai),
      vista_(vista),
      campoPagina_(new CampoPagina(this)),
      totalPaginas_(new QLabel(this)),
      campoAmpliacao_(new CampoAmpliacao(this)) {
    setObjectName(u"ferramentas"_s);
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    const auto acrescentar = [&](std::initializer_list<Acao> grupo) {
        for (const auto acao : grupo) {
            addAction(&acoes[acao]);
        }
    };
    acrescentar({Acao::Imprimir, Acao::Salvar});
    addSeparator();
    acrescentar({Acao::Painel, Acao::Primeira, Acao::Anterior});
    addWidget(campoPagina_);
    addWidget(totalPaginas_);
    acrescentar({Acao::Proxima, Acao::Ultima});
    addSeparator();
    acrescentar({Acao::Reduzir});
    addWidget(campoAmpliacao_);
    acrescentar({Acao::Ampliar, Acao::PaginaInteira, Acao::LarguraDaPagina, Acao::Continuo});
    addSeparator();
    acrescentar({Acao::Localizar});
    // By the Tab key in the order in which they stand.
    QWidget* anterior = nullptr;
    for (auto* acao : actions()) {
        auto* controle = widgetForAction(acao);
        if (qobject_cast<QToolButton*>(controle) != nullptr) {
            controle->setFocusPolicy(Qt::TabFocus);
        }
        if (controle->focusPolicy() != Qt::NoFocus) {
            if (anterior != nullptr) {
                setTabOrder(anterior, controle);
            }
            anterior = controle;
        }
    }

    const auto voltar = [this] { vista_.setFocus(); };
    campoPagina_->aoPedir = [this](int pagina) { vista_.IrPara(pagina - 1); };
    campoPagina_->aoConcluir = voltar;
    campoAmpliacao_->aoAmpliar = [this](double ampliacao) { vista_.Ampliar(ampliacao); };
    campoAmpliacao_->aoAjustar = [this](Ajuste ajuste) { vista_.Ajustar(ajuste); };
    campoAmpliacao_->aoConcluir = voltar;
}

void BarraDeFerramentas::Atualizar() {
    campoPagina_->Mostrar(vista_.Pagina() + 1, vista_.Paginas());
    totalPaginas_->setText(u" de %1 "_s.arg(vista_.Paginas()));
    campoAmpliacao_->Mostrar(vista_.AmpliacaoAtual());
}

void BarraDeFerramentas::PedirPagina() {
    campoPagina_->setFocus();
    campoPagina_->selectAll();
}

}  // namespace tarvo
