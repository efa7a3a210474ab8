// SPDX-License-Identifier: MIT
#include "desktop/LugarDaJanela.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QScreen>
#include <QWidget>
#include <memory>
#include <set>

#include "system/settings/ConfiguracoesIni.h"
#include "tests/support/Apoio.h"

namespace tarvo {
namespace {

using namespace Qt::StringLiterals;

class LugarDaJanelaTeste : public testing::Test {
  protected:
    // Opens a window of a kind where it belongs.
    std::unique_ptr<QWidget> Abrir(LugarDaJanela& lugar) {
        auto janela = std::make_unique<QWidget>();
        janela->setObjectName(u"especie"_s);
        lugar.Colocar(*janela);
        janela->show();
        return janela;
    }
    [[nodiscard]] LugarDaJanela Lugar(const QSize& padrao) { return {&ini, "Especie", padrao}; }

    apoio::PastaTemporaria pasta;
    ConfiguracoesIni ini{pasta.Caminho()};
    const QRect tela = QApplication::primaryScreen()->availableGeometry();
};

TEST_F(LugarDaJanelaTeste, EighteenWindowsInFourSessionsStayOnTheScreenAndApart) {
    for (int sessao = 0; sessao < 4; ++sessao) {
        std::vector<std::unique_ptr<QWidget>> janelas;
        std::vector<LugarDaJanela> lugares(18, Lugar({400, 300}));
        std::set<std::pair<int, int>> cantos;
        for (auto& lugar : lugares) {
            janelas.push_back(Abrir(lugar));
            EXPECT_TRUE(tela.contains(janelas.back()->frameGeometry()));
            cantos.emplace(janelas.back()->x(), janelas.back()->y());
        }
        EXPECT_EQ(cantos.size(), 18U);
        EXPECT_EQ(janelas.front()->pos(), tela.center() - QPoint(200, 150)) << "session " << sessao;
        for (int i = 17; i >= 0; --i) {
            lugares.at(static_cast<std::size_t>(i))
                .Gravar(*janelas.at(static_cast<std::size_t>(i)));
        }
    }
}

TEST_F(LugarDaJanelaTeste, IsNeverLargerThanTheScreen) {
    auto lugar = Lugar({9000, 9000});
    const auto janela = Abrir(lugar);
    EXPECT_TRUE(tela.contains(janela->frameGeometry()));
    ini.Gravar("Tarvo", "Especie", "Lugar", "-5000 99999 7000 1 normal");
    EXPECT_TRUE(tela.contains(Abrir(lugar)->frameGeometry()));
}

TEST_F(LugarDaJanelaTeste, TakesOverWhatAnOlderVersionKept) {
    QWidget antiga;
    antiga.setGeometry(30, 40, 360, 240);
    ini.Gravar("Tarvo", "Especie", "Geometria", antiga.saveGeometry().toBase64().toStdString());
    auto lugar = Lugar({400, 300});
    const auto nova = Abrir(lugar);
    EXPECT_EQ(nova->size(), QSize(360, 240));
    EXPECT_LT((nova->pos() - QPoint(30, 40)).manhattanLength(), 10) << "but for a frame";
    ini.Gravar("Tarvo", "Especie", "Geometria", "!\xFF");
    ini.Gravar("Tarvo", "Especie", "Lugar", "1 2 -3 4 normal");
    EXPECT_EQ(Abrir(lugar)->size(), QSize(400, 300));
}

TEST_F(LugarDaJanelaTeste, KeepsSizeAndStateAndTheUsersPlace) {
    auto lugar = Lugar({400, 300});
    auto janela = Abrir(lugar);
    janela->setGeometry(20, 30, 350, 250);
    lugar.Gravar(*janela);
    janela.reset();
    janela = Abrir(lugar);
    EXPECT_EQ(janela->geometry(), QRect(20, 30, 350, 250));
    janela->setWindowState(Qt::WindowMaximized);
    lugar.Gravar(*janela);
    janela.reset();
    janela = Abrir(lugar);
    EXPECT_TRUE(janela->isMaximized());
    janela->setWindowState(Qt::WindowNoState);
    EXPECT_EQ(janela->size(), QSize(350, 250));
}

}  // namespace
}  // namespace tarvo
