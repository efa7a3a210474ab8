// SPDX-License-Identifier: MIT
#include "desktop/preview/CampoPagina.h"

#include "desktop/Ligacao.h"

namespace tarvo {

using namespace Qt::StringLiterals;

CampoPagina::CampoPagina(QWidget* pai) : QLineEdit(pai) {
    setObjectName(u"campoPagina"_s);
    setAccessibleName(u"Página"_s);
    setToolTip(u"Ir para a página (Ctrl+G)"_s);
    setAlignment(Qt::AlignRight);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    Ligar(this, &QLineEdit::returnPressed, this, [this] {
        if (Ler()) {
            aoConcluir();
        }
    });
    // Also when the focus leaves with a number that Enter has not confirmed.
    Ligar(this, &QLineEdit::editingFinished, this, [this] {
        if (!hasFocus()) {
            Ler();
        }
    });
}

QSize CampoPagina::sizeHint() const {
    const int digitos = std::max(3, static_cast<int>(QString::number(paginas_).size()));
    return {fontMetrics().horizontalAdvance(QString(digitos, u'0')) + 18,
            QLineEdit::sizeHint().height()};
}

void CampoPagina::Mostrar(int pagina, int paginas) {
    pagina_ = pagina;
    if (paginas != paginas_) {
        paginas_ = paginas;
        updateGeometry();
    }
    if (!isModified()) {
        setText(QString::number(pagina));
    }
}

bool CampoPagina::Ler() {
    const auto digitado = text().trimmed();
    const bool mudou = isModified();
    setText(QString::number(pagina_));  // and no longer modified
    if (!mudou) {
        return true;
    }
    bool numero = false;
    const int pagina = digitado.toInt(&numero);
    if (!numero || pagina < 1 || pagina > paginas_) {
        DizerDePassagem(this, u"Não há página \"%1\": o relatório vai de 1 a %2."_s.arg(
                                  digitado, QString::number(paginas_)));
        selectAll();
        return false;
    }
    aoPedir(pagina);
    return true;
}

}  // namespace tarvo
