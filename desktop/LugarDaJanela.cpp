// SPDX-License-Identifier: MIT
#include "desktop/LugarDaJanela.h"

#include <QApplication>
#include <QRegularExpression>
#include <QScreen>
#include <QWidget>
#include <algorithm>

#include "desktop/ApoioQt.h"
#include "desktop/Habitos.h"

namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

constexpr int Passo = 28;                 // pixels between two windows of a kind
constexpr QMargins Moldura(4, 30, 4, 6);  // that a window manager may put around a window
constexpr int Ajustes = 40;               // by which it may move one on its own
constexpr std::string_view ChaveAntiga = "Geometria";  // of 1.0, as Qt writes it
constexpr std::string_view Chave = "Lugar";            // "x y largura altura normal|maximizada"

}  // namespace

QPoint LugarDaJanela::Livre(const QRect& area, const QPoint& preferido, const QSize& tamanho,
                            const std::vector<QPoint>& outras) {
    const QSize folga = (area.size() - tamanho).expandedTo({0, 0});
    const auto lugar = [&](int passos) {
        const auto dentro = [passos](int inicio, int folgaDoLado) {
            return (std::clamp(inicio, 0, folgaDoLado) + passos * Passo) % (folgaDoLado + 1);
        };
        const QPoint desvio = preferido - area.topLeft();
        return area.topLeft() +
               QPoint(dentro(desvio.x(), folga.width()), dentro(desvio.y(), folga.height()));
    };
    const auto ocupado = [&](const QPoint& ponto) {
        return std::any_of(outras.begin(), outras.end(), [&](const QPoint& outra) {
            return (outra - ponto).manhattanLength() < Passo;
        });
    };
    // Each of the others takes at most two places, so that one is free if there are enough.
    const int tentativas = 2 * static_cast<int>(outras.size());
    for (int passos = 0; passos < tentativas; ++passos) {
        if (!ocupado(lugar(passos))) {
            return lugar(passos);
        }
    }
    return lugar(tentativas);
}

void LugarDaJanela::Colocar(QWidget& janela) {
    const QRect area = janela.screen()->availableGeometry();
    QSize tamanho = padrao_;
    bool maximizada = false;
    preferido_ = area.center() - QPoint(padrao_.width() / 2, padrao_.height() / 2);
    static const QRegularExpression Forma(
        u"^(-?\\d{1,5}) (-?\\d{1,5}) (\\d{1,5}) (\\d{1,5}) (normal|maximizada)$"_s);
    const auto lido = Forma.match(ParaQt(LerHabito(configuracoes_, secao_, Chave)));
    if (lido.hasMatch()) {
        const auto numero = [&](int qual) { return lido.captured(qual).toInt(); };
        preferido_ = {numero(1), numero(2)};
        tamanho = QSize(numero(3), numero(4)).expandedTo({200, 150});
        maximizada = lido.captured(5) == u"maximizada"_s;
    } else if (const auto antiga = LerHabito(configuracoes_, secao_, ChaveAntiga);
               janela.restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(antiga)))) {
        preferido_ = janela.normalGeometry().topLeft();
        tamanho = janela.normalGeometry().size();
        maximizada = janela.isMaximized();
    }
    tamanho = tamanho.boundedTo(area.marginsRemoved(Moldura).size());
    std::vector<QPoint> outras;
    for (const auto* outra : QApplication::topLevelWidgets()) {
        if (outra != &janela && outra->isVisible() && outra->objectName() == janela.objectName()) {
            outras.push_back(outra->pos());
        }
    }
    janela.resize(tamanho);
    colocada_ = Livre(area, preferido_, tamanho.grownBy(Moldura), outras);
    janela.move(colocada_);
    janela.setWindowState(maximizada ? Qt::WindowMaximized : Qt::WindowNoState);
}

void LugarDaJanela::Gravar(const QWidget& janela) const {
    const bool maximizada = janela.isMaximized();
    const bool livre = !maximizada && !janela.isFullScreen();
    const QSize tamanho = livre ? janela.size() : janela.normalGeometry().size();
    const bool movida = livre && (janela.pos() - colocada_).manhattanLength() > Ajustes;
    const QPoint lugar = movida ? janela.pos() : preferido_;
    const auto texto = u"%1 %2 %3 %4 %5"_s.arg(lugar.x())
                           .arg(lugar.y())
                           .arg(tamanho.width())
                           .arg(tamanho.height())
                           .arg(maximizada ? u"maximizada"_s : u"normal"_s);
    GravarHabito(configuracoes_, secao_, Chave, texto.toStdString());
}

}  // namespace tarvo
