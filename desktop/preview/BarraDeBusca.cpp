#include "desktop/preview/BarraDeBusca.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include "desktop/preview/BuscaTexto.h"

namespace tarvo {

using namespace Qt::StringLiterals;

BarraDeBusca::BarraDeBusca(QWidget* pai, QAction& proximo, QAction& anterior)
    : QWidget(pai), campo_(new QLineEdit(this)), situacao_(new QLabel(this)) {
    auto* rotulo = new QLabel(u"&Localizar:"_s, this);
    rotulo->setBuddy(campo_);
    campo_->setObjectName(u"campoBusca"_s);
    campo_->setAccessibleName(u"Texto a localizar"_s);
    campo_->setClearButtonEnabled(true);
    campo_->setMaximumWidth(320);
    campo_->installEventFilter(this);
    situacao_->setObjectName(u"situacaoBusca"_s);
    auto* linha = new QHBoxLayout(this);
    linha->setContentsMargins(6, 3, 6, 3);
    linha->addWidget(rotulo);
    linha->addWidget(campo_, 1);
    for (auto* acao : {&anterior, &proximo}) {
        auto* botao = new QToolButton(this);
        botao->setDefaultAction(acao);
        botao->setAutoRaise(true);
        linha->addWidget(botao);
    }
    linha->addWidget(situacao_);
    linha->addStretch(1);
    connect(campo_, &QLineEdit::textChanged, this, [this](const QString& texto) {
        if (aoDigitar) {
            aoDigitar(texto);
        }
    });
}

void BarraDeBusca::Abrir() {
    show();
    campo_->setFocus();
    campo_->selectAll();
}

QString BarraDeBusca::Texto() const {
    return campo_->text();
}

bool BarraDeBusca::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress) {
        const auto& tecla = *static_cast<QKeyEvent*>(evento);
        if (tecla.key() == Qt::Key_Escape && aoFechar) {
            aoFechar();
            return true;
        }
        if ((tecla.key() == Qt::Key_Return || tecla.key() == Qt::Key_Enter) && aoPedirOutro) {
            aoPedirOutro((tecla.modifiers() & Qt::ShiftModifier) == 0);
            return true;
        }
    }
    return QWidget::eventFilter(objeto, evento);
}

void BarraDeBusca::MostrarSituacao(const BuscaTexto& busca, int paginas) {
    QString texto;
    if (busca.Total() > 0) {
        texto = u"%1 de %2"_s.arg(busca.Ordem()).arg(busca.Total());
    } else if (busca.Terminada() && !busca.Texto().trimmed().isEmpty()) {
        texto = u"Nenhum resultado"_s;
    }
    if (!busca.Terminada()) {
        texto += (texto.isEmpty() ? u"procurando… %1 %"_s : u" (procurando… %1 %)"_s)
                     .arg(100 * busca.Lidas() / paginas);
    }
    situacao_->setText(texto);
}

}  // namespace tarvo
