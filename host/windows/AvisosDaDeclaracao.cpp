// SPDX-License-Identifier: MIT
#include "host/windows/AvisosDaDeclaracao.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QVBoxLayout>

#include "desktop/ApoioQt.h"
#include "desktop/Ligacao.h"

namespace tarvo::host {

using namespace Qt::StringLiterals;

AvisosDaDeclaracao::AvisosDaDeclaracao(QWidget* janela) : QPushButton(janela) {
    setObjectName(u"avisos"_s);
    setFlat(true);
    hide();
    Ligar(this, &QPushButton::clicked, this, [this] { Listar(); });
}

void AvisosDaDeclaracao::Mostrar(std::int32_t NroDRQ, const std::vector<std::string>& avisos) {
    Esquecer();
    for (const std::string& aviso : avisos) {
        avisos_ << ParaQt(aviso);
    }
    declaracao_ = u"DRQ %1"_s.arg(NroDRQ);
    const auto quantos = avisos_.size() == 1 ? u"1 a&viso"_s : u"%1 a&visos"_s.arg(avisos_.size());
    setText(declaracao_ + u": "_s + quantos);
    setToolTip(u"O que as páginas não mostram como se espera"_s);
    setVisible(!avisos_.isEmpty());
}

void AvisosDaDeclaracao::Esquecer() {
    avisos_.clear();
    hide();
}

void AvisosDaDeclaracao::Listar() {
    QDialog dialogo(window());
    dialogo.setWindowTitle(declaracao_ + u" — o que as páginas não mostram como se espera"_s);
    auto* lista = new QListWidget(&dialogo);
    lista->setWordWrap(true);
    lista->addItems(avisos_);
    lista->setCurrentRow(0);
    auto* fechar = new QDialogButtonBox(QDialogButtonBox::Close, &dialogo);
    Ligar(fechar, &QDialogButtonBox::rejected, &dialogo, [&dialogo] { dialogo.reject(); });
    auto* conteudo = new QVBoxLayout(&dialogo);
    conteudo->addWidget(lista);
    conteudo->addWidget(fechar);
    dialogo.resize(720, 360);
    dialogo.exec();
}

}  // namespace tarvo::host
