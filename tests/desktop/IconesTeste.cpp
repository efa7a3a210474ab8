// SPDX-License-Identifier: MIT
#include "desktop/Icones.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPalette>

namespace tarvo {
namespace {

// The colour of the darkest covering of a picture.
QColor Traco(const QImage& figura) {
    QColor traco(Qt::transparent);
    for (int y = 0; y < figura.height(); ++y) {
        for (int x = 0; x < figura.width(); ++x) {
            if (const auto cor = figura.pixelColor(x, y); cor.alpha() > traco.alpha()) {
                traco = cor;
            }
        }
    }
    return traco;
}

TEST(Icones, HaveTheColourOfTheTextInEveryPalette) {
    const QPalette antes = QApplication::palette();
    const QIcon icone = IconeDeTracos("imprimir");
    for (const QColor texto : {QColor(20, 20, 20), QColor(235, 235, 235)}) {
        QPalette paleta = antes;
        paleta.setColor(QPalette::Active, QPalette::WindowText, texto);
        paleta.setColor(QPalette::Disabled, QPalette::WindowText, Qt::gray);
        QApplication::setPalette(paleta);
        for (const int lado : {16, 24, 48}) {
            const auto figura = icone.pixmap(lado, lado).toImage();
            EXPECT_NEAR(Traco(figura).red(), texto.red(), 3) << lado;
            EXPECT_GT(Traco(figura).alpha(), 150) << lado;
        }
        const auto apagada = icone.pixmap(24, 24, QIcon::Disabled).toImage();
        EXPECT_NEAR(Traco(apagada).red(), QColor(Qt::gray).red(), 3);
    }
    QApplication::setPalette(antes);
}

}  // namespace
}  // namespace tarvo
