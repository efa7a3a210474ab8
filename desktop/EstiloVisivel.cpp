// SPDX-License-Identifier: MIT
#include "desktop/EstiloVisivel.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace tarvo {

namespace {

class EstiloVisivel final : public QProxyStyle {
  public:
    EstiloVisivel() : QProxyStyle(QStringLiteral("fusion")) {}

    void drawPrimitive(PrimitiveElement parte, const QStyleOption* opcao, QPainter* pintura,
                       const QWidget* onde) const override {
        QProxyStyle::drawPrimitive(parte, opcao, pintura, onde);
        if (parte == PE_IndicatorCheckBox || parte == PE_IndicatorItemViewItemCheck) {
            const bool ativo = opcao->state.testFlag(State_Enabled);
            auto cor = opcao->palette.color(QPalette::Text);
            cor.setAlpha(ativo ? 170 : 80);
            Emoldurar(*pintura, opcao->rect, cor, 1);
        }
    }
    void drawComplexControl(ComplexControl controle, const QStyleOptionComplex* opcao,
                            QPainter* pintura, const QWidget* onde) const override {
        QProxyStyle::drawComplexControl(controle, opcao, pintura, onde);
        if (controle == CC_ToolButton && opcao->state.testFlag(State_HasFocus)) {
            Emoldurar(*pintura, opcao->rect, opcao->palette.color(QPalette::Highlight), 2);
        }
    }

  private:
    static void Emoldurar(QPainter& pintura, const QRect& area, const QColor& cor, int espessura) {
        pintura.save();
        pintura.setRenderHint(QPainter::Antialiasing);
        pintura.setPen(QPen(cor, espessura));
        pintura.setBrush(Qt::NoBrush);
        const double meia = espessura / 2.0;
        pintura.drawRoundedRect(QRectF(area).adjusted(meia, meia, -meia, -meia), 2, 2);
        pintura.restore();
    }
};

}  // namespace

void InstalarEstiloVisivel() {
    if (QApplication::style()->name() == QLatin1String("fusion")) {
        QApplication::setStyle(new EstiloVisivel);
    }
}

}  // namespace tarvo
