// SPDX-License-Identifier: MIT
#include "desktop/preview/JanelaDeAbas.h"

#include <QCloseEvent>
#include <QTabBar>
#include <QTabWidget>

#include "desktop/Ligacao.h"
#include "desktop/preview/JanelaVisualizacao.h"

namespace tarvo {

using namespace Qt::StringLiterals;

JanelaDeAbas::JanelaDeAbas(ConfiguracoesIni* preferencias)
    : lugar_(preferencias, "VisualizacaoEmAbas", {900, 1000}), abas_(new QTabWidget(this)) {
    setObjectName(u"visualizacoesEmAbas"_s);
    abas_->setObjectName(u"abas"_s);
    abas_->tabBar()->setAccessibleName(u"Relatórios"_s);
    abas_->setDocumentMode(true);
    abas_->setTabsClosable(true);
    abas_->setMovable(true);
    abas_->setElideMode(Qt::ElideNone);  // too many scroll; they do not shrink to nothing
    setCentralWidget(abas_);
    Ligar(abas_, &QTabWidget::currentChanged, this, [this](int qual) {
        if (const auto* previa = abas_->widget(qual)) {
            setWindowTitle(previa->windowTitle());
            setWindowIcon(previa->windowIcon());
        }
    });
    Ligar(abas_, &QTabWidget::tabCloseRequested, this,
          [this](int qual) { abas_->widget(qual)->close(); });
}

JanelaDeAbas::~JanelaDeAbas() {
    while (auto* previa = abas_->widget(0)) {
        previa->setParent(nullptr);
    }
}

void JanelaDeAbas::Mostrar(JanelaVisualizacao& previa, bool naFrente) {
    if (abas_->count() == 0) {
        lugar_.Colocar(*this);
    }
    if (abas_->indexOf(&previa) < 0) {
        abas_->addTab(&previa, QString());
    }
    const int qual = abas_->indexOf(&previa);
    abas_->setTabText(qual, previa.TituloResumido().replace(u'&', u"&&"_s));
    abas_->setTabToolTip(qual, previa.windowTitle());
    abas_->setTabIcon(qual, previa.windowIcon());
    if (naFrente) {
        abas_->setCurrentIndex(qual);
    }
    if (abas_->currentIndex() == qual) {
        setWindowTitle(previa.windowTitle());
        setWindowIcon(previa.windowIcon());
    }
    if (naFrente) {
        show();
        raise();
        activateWindow();
    }
}

void JanelaDeAbas::Retirar(JanelaVisualizacao& previa) {
    const int qual = abas_->indexOf(&previa);
    if (qual < 0) {
        return;
    }
    abas_->removeTab(qual);
    previa.setParent(nullptr, Qt::Window);
    if (abas_->count() == 0) {
        lugar_.Gravar(*this);
        hide();
    }
}

void JanelaDeAbas::closeEvent(QCloseEvent* evento) {
    for (int qual = abas_->count(); qual-- > 0;) {
        abas_->widget(qual)->close();
    }
    QMainWindow::closeEvent(evento);
}

}  // namespace tarvo
