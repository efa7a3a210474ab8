// SPDX-License-Identifier: MIT
#include "desktop/preview/BarraDeBusca.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QStyle>
#include <QToolButton>

#include "desktop/Ligacao.h"
#include "desktop/preview/BuscaTexto.h"

namespace tarvo {

using namespace Qt::StringLiterals;

BarraDeBusca::BarraDeBusca(QWidget* pai, QAction& proximo, QAction& anterior)
    : QWidget(pai),
      campo_(new QLineEdit(this)),
      exata_(new QCheckBox(u"&Maiúsculas e acentos"_s, this)),
      situacao_(new QLabel(this)) {
    auto* rotulo = new QLabel(u"&Localizar:"_s, this);
    rotulo->setBuddy(campo_);
    campo_->setObjectName(u"campoBusca"_s);
    campo_->setAccessibleName(u"Texto a localizar"_s);
    campo_->setClearButtonEnabled(true);
    campo_->setMaximumWidth(320);
    campo_->installEventFilter(this);
    situacao_->setObjectName(u"situacaoBusca"_s);
    auto* fila = new QHBoxLayout(this);
    fila->setContentsMargins(6, 3, 6, 3);
    fila->addWidget(rotulo);
    fila->addWidget(campo_, 4);
    for (auto* acao : {&anterior, &proximo}) {
        auto* botao = new QToolButton(this);
        botao->setDefaultAction(acao);
        botao->setAutoRaise(true);
        fila->addWidget(botao);
    }
    exata_->setObjectName(u"buscaExata"_s);
    exata_->setToolTip(u"Achar só o que tem as mesmas maiúsculas e os mesmos acentos"_s);
    fila->addWidget(exata_);
    fila->addWidget(situacao_);
    fila->addStretch(1);
    auto* fechar = new QToolButton(this);
    fechar->setObjectName(u"fecharBusca"_s);
    fechar->setAutoRaise(true);
    fechar->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    fechar->setToolTip(u"Fechar a busca (Esc)"_s);
    fechar->setAccessibleName(u"Fechar a busca"_s);
    fila->addWidget(fechar);
    Ligar(campo_, &QLineEdit::textChanged, this, [this] { Procurar(); });
    Ligar(exata_, &QCheckBox::toggled, this, [this] { Procurar(); });
    Ligar(fechar, &QToolButton::clicked, this, [this] { Fechar(); });
    // From anywhere in the window, as long as the bar is to be seen.
    Ligar(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] { Fechar(); });
    for (auto* botao : findChildren<QToolButton*>()) {
        botao->setFocusPolicy(Qt::TabFocus);
    }
    hide();
}

void BarraDeBusca::Procurar() {
    if (busca_ != nullptr) {
        busca_->Procurar(campo_->text(), paginaAtual(), exata_->isChecked());
    }
}

BarraDeBusca::~BarraDeBusca() = default;

void BarraDeBusca::Mostrar(QPdfDocument* documento) {
    hide();
    busca_ = documento != nullptr ? std::make_unique<BuscaTexto>(*documento) : nullptr;
    if (busca_ != nullptr) {
        busca_->aoMudar = [this](bool novoAtual) {
            MostrarSituacao();
            aoMudar(novoAtual);
        };
    }
}

void BarraDeBusca::Abrir() {
    if (busca_ == nullptr) {
        return;
    }
    show();
    campo_->setFocus();
    campo_->selectAll();
    if (busca_->Texto() != campo_->text()) {
        Procurar();
    }
    MostrarSituacao();
}

void BarraDeBusca::Fechar() {
    hide();
    if (busca_ != nullptr) {
        busca_->Procurar({}, 0);
    }
    aoFechar();
}

void BarraDeBusca::Mover(int sentido) {
    isVisible() ? busca_->Mover(sentido) : Abrir();
}

bool BarraDeBusca::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress) {
        const auto& tecla = *static_cast<QKeyEvent*>(evento);
        if (tecla.key() == Qt::Key_Return || tecla.key() == Qt::Key_Enter) {
            Mover((tecla.modifiers() & Qt::ShiftModifier) == 0 ? 1 : -1);
            return true;
        }
    }
    return QWidget::eventFilter(objeto, evento);
}

void BarraDeBusca::MostrarSituacao() {
    QString texto;
    if (busca_->Total() > 0) {
        texto = u"%1 de %2"_s.arg(busca_->Ordem()).arg(busca_->Total());
    } else if (busca_->Terminada() && !busca_->Texto().trimmed().isEmpty()) {
        texto = u"Nenhum resultado"_s;
    }
    if (!busca_->Terminada()) {
        texto += (texto.isEmpty() ? u"procurando… %1 %"_s : u" (procurando… %1 %)"_s)
                     .arg(100 * busca_->Lidas() / busca_->Paginas());
    }
    situacao_->setText(texto);
}

}  // namespace tarvo
