// SPDX-License-Identifier: MIT
#include "desktop/Mensagens.h"

#include <QApplication>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>

#include "data/CodigosDeErros.h"
#include "desktop/ApoioQt.h"
#include "desktop/Ligacao.h"

namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

constexpr int Passagem = 5000;  // ms

QWidget* JanelaDe(QObject* onde) {
    for (; onde != nullptr; onde = onde->parent()) {
        if (auto* parte = qobject_cast<QWidget*>(onde)) {
            return parte->window();
        }
    }
    return QApplication::activeWindow();
}

QMessageBox& AbrirMensagem(QWidget* janela, QMessageBox::Icon icone, const QString& texto) {
    const auto titulo = janela != nullptr ? janela->windowTitle() : u"Relatórios Tarvo"_s;
    auto* mensagem = new QMessageBox(icone, titulo, texto, QMessageBox::Ok, janela);
    // Errors may quote what a database holds; only our own texts are formatted.
    mensagem->setTextFormat(icone == QMessageBox::Information ? Qt::AutoText : Qt::PlainText);
    mensagem->setAttribute(Qt::WA_DeleteOnClose);
    mensagem->open();
    return *mensagem;
}

bool JaDiz(const QWidget* janela, const QString& texto) {
    const auto janelas = QApplication::topLevelWidgets();
    return std::any_of(janelas.begin(), janelas.end(), [&](const QWidget* outra) {
        const auto* mensagem = qobject_cast<const QMessageBox*>(outra);
        return mensagem != nullptr && mensagem->isVisible() && mensagem->parentWidget() == janela &&
               mensagem->text() == texto;
    });
}

}  // namespace

QString TextoDoErro(const Erro& erro) {
    return u"erro %1: %2"_s.arg(static_cast<int>(erro.Numero())).arg(ParaQt(erro.Descricao()));
}

void Dizer(QWidget* janela, const QString& texto) {
    AbrirMensagem(JanelaDe(janela), QMessageBox::Information, texto);
}

void DizerErro(QObject* onde, const Erro& erro, const std::function<void()>& deNovo) {
    if (erro.Numero() == NumeroErro::Cancelado) {
        return DizerDePassagem(onde, ParaQt(erro.Descricao()));
    }
    auto* janela = JanelaDe(onde);
    const auto texto = TextoDoErro(erro);
    if (JaDiz(janela, texto)) {
        return;
    }
    auto& mensagem = AbrirMensagem(janela, QMessageBox::Warning, texto);
    if (deNovo) {
        auto* botao = mensagem.addButton(u"&Tentar de novo"_s, QMessageBox::AcceptRole);
        mensagem.setStandardButtons(QMessageBox::Cancel);
        mensagem.setDefaultButton(botao);
        Ligar(botao, &QPushButton::clicked, janela, deNovo);
    }
}

void DizerDePassagem(QObject* onde, const QString& texto) {
    for (auto* parte = onde != nullptr ? onde : QApplication::activeWindow(); parte != nullptr;
         parte = parte->parent()) {
        if (auto* janela = qobject_cast<QMainWindow*>(parte)) {
            return janela->statusBar()->showMessage(texto, Passagem);
        }
    }
}

}  // namespace tarvo
