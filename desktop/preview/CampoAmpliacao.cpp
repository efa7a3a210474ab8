// SPDX-License-Identifier: MIT
#include "desktop/preview/CampoAmpliacao.h"

#include <QLineEdit>

#include "desktop/Ligacao.h"

namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

constexpr Ajuste Ajustes[] = {Ajuste::PaginaInteira, Ajuste::LarguraDaPagina};
constexpr double Ampliacoes[] = {0.25, 0.5, 0.75, 1.0, 1.25, 1.5, 2.0, 4.0, 8.0};

}  // namespace

CampoAmpliacao::CampoAmpliacao(QWidget* pai) : QComboBox(pai) {
    setObjectName(u"campoAmpliacao"_s);
    setAccessibleName(u"Ampliação"_s);
    setToolTip(u"Ampliação, de 25 % a 800 %"_s);
    setEditable(true);
    setCompleter(nullptr);  // it would make 800 of 80
    setInsertPolicy(QComboBox::NoInsert);
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
    addItems({u"Página inteira"_s, u"Largura da página"_s});
    for (const double ampliacao : Ampliacoes) {
        addItem(Ampliacao::Percentual(ampliacao));
    }
    Ligar(this, &QComboBox::activated, this, [this] {
        Ler();
        aoConcluir();
    });
    // The name of an item, typed, has been activated before.
    Ligar(lineEdit(), &QLineEdit::returnPressed, this, [this] {
        if (!lineEdit()->isModified() || Ler()) {
            aoConcluir();
        }
    });
    Ligar(lineEdit(), &QLineEdit::editingFinished, this, [this] {
        if (!hasFocus() && lineEdit()->isModified()) {
            Ler();
        }
    });
}

void CampoAmpliacao::Mostrar(double ampliacao) {
    ampliacao_ = ampliacao;
    if (!lineEdit()->isModified()) {
        setEditText(Ampliacao::Percentual(ampliacao));
    }
}

bool CampoAmpliacao::Ler() {
    const QString digitado = currentText();
    lineEdit()->setModified(false);
    for (int i = 0; i < static_cast<int>(std::size(Ajustes)); ++i) {
        if (digitado == itemText(i)) {
            aoAjustar(Ajustes[i]);
            return true;
        }
    }
    if (const auto ampliacao = Ampliacao::LerPercentual(digitado)) {
        aoAmpliar(*ampliacao);
        return true;
    }
    setEditText(Ampliacao::Percentual(ampliacao_));
    lineEdit()->selectAll();
    DizerDePassagem(this, u"\"%1\" não é uma ampliação: digite de 25 a 800."_s.arg(digitado));
    return false;
}

}  // namespace tarvo
