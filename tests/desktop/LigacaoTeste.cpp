// SPDX-License-Identifier: MIT
#include "desktop/Ligacao.h"

#include <QAction>
#include <QMainWindow>
#include <QMessageBox>
#include <QStatusBar>
#include <stdexcept>

#include "tests/desktop/Previas.h"

namespace tarvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using namespace Qt::StringLiterals;

class Ligacao : public testing::Test {
  protected:
    Ligacao() { janela.show(); }
    static std::vector<std::string> Ditas() {
        std::vector<std::string> textos;
        for (auto* mensagem : apoio::Abertas<QMessageBox>()) {
            textos.push_back(mensagem->text().toStdString());
        }
        return textos;
    }

    QMainWindow janela;
    QAction acao;
};

TEST_F(Ligacao, ASlotThatThrowsIsToldOverItsWindowAndTheProgramGoesOn) {
    int vezes = 0;
    Ligar(&acao, &QAction::triggered, &janela, [&](bool) {
        ++vezes;
        throw Erro(NumeroErro::DiscoCheio, "O disco está cheio.");
    });
    acao.trigger();
    acao.trigger();
    EXPECT_EQ(vezes, 2);
    EXPECT_THAT(Ditas(), ElementsAre("erro 61: O disco está cheio.")) << "once, while it stands";
    EXPECT_EQ(apoio::Abertas<QMessageBox>().front()->parentWidget(), &janela);
}

TEST_F(Ligacao, WhateverIsThrownIsAnErrorWithANumberButNotWhatTheUserHasCancelled) {
    QAction outra;
    Ligar(&outra, &QAction::triggered, &janela, [] { throw std::runtime_error("x"); });
    outra.trigger();
    EXPECT_THAT(Ditas(), ElementsAre("erro 51: Erro interno: x"));
    apoio::Abertas<QMessageBox>().front()->close();
    Ligar(&acao, &QAction::triggered, &janela,
          [] { throw Erro(NumeroErro::Cancelado, "Impressão cancelada."); });
    acao.trigger();
    EXPECT_THAT(Ditas(), IsEmpty());
    EXPECT_EQ(janela.statusBar()->currentMessage(), u"Impressão cancelada."_s);
}

TEST_F(Ligacao, ASlotMayEndItsOwnWindow) {
    auto dono = std::make_unique<QMainWindow>();
    Ligar(&acao, &QAction::triggered, dono.get(), [&] {
        dono.reset();
        throw Erro(NumeroErro::DiscoCheio, "O disco está cheio.");
    });
    acao.trigger();
    EXPECT_THAT(Ditas(), ElementsAre("erro 61: O disco está cheio."));
    apoio::Abertas<QMessageBox>().front()->close();
    acao.trigger();
    EXPECT_THAT(Ditas(), IsEmpty()) << "the slot has gone with its window";
}

}  // namespace
}  // namespace tarvo
