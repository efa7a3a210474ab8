// SPDX-License-Identifier: MIT
#include "host/windows/Recado.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/Ligacao.h"

namespace tarvo::host {

using namespace Qt::StringLiterals;

Recado::Recado(QWidget* pai)
    : QWidget(pai), texto_(new QLabel(this)), botao_(new QPushButton(this)) {
    texto_->setObjectName(u"vazio"_s);
    texto_->setAlignment(Qt::AlignCenter);
    texto_->setTextFormat(Qt::PlainText);
    texto_->setWordWrap(true);
    botao_->setObjectName(u"botaoDoVazio"_s);
    Ligar(botao_, &QPushButton::clicked, this, [this] {
        const auto fazer = fazer_;  // it may say something else meanwhile
        fazer();
    });
    auto* colunas = new QVBoxLayout(this);
    colunas->addStretch();
    colunas->addWidget(texto_);
    colunas->addWidget(botao_, 0, Qt::AlignHCenter);
    colunas->addStretch();
}

void Recado::Dizer(const QString& texto, const QString& acao, std::function<void()> fazer) {
    texto_->setText(texto);
    botao_->setText(acao);
    botao_->setVisible(!acao.isEmpty());
    fazer_ = std::move(fazer);
}

}  // namespace tarvo::host
