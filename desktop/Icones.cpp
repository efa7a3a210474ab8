// SPDX-License-Identifier: MIT
#include "desktop/Icones.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

// Outside any namespace, as the macro wants it.
static void CarregarIcones() {
    Q_INIT_RESOURCE(icones);
}

namespace tarvo {

namespace {

// The drawing is kept as text: its colour is known only when it is painted, because the user may
// change the palette.
class Tracos final : public QIconEngine {
  public:
    explicit Tracos(QByteArray desenho) : desenho_(std::move(desenho)) {}

    void paint(QPainter* pintura, const QRect& area, QIcon::Mode modo, QIcon::State) override {
        const auto grupo = modo == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto cor = QGuiApplication::palette().color(grupo, QPalette::WindowText);
        QSvgRenderer(QByteArray(desenho_).replace("currentColor", cor.name().toLatin1()))
            .render(pintura, area);
    }
    QPixmap pixmap(const QSize& tamanho, QIcon::Mode modo, QIcon::State estado) override {
        QPixmap figura(tamanho);
        figura.fill(Qt::transparent);
        QPainter pintura(&figura);
        paint(&pintura, QRect(QPoint(), tamanho), modo, estado);
        return figura;
    }
    [[nodiscard]] QIconEngine* clone() const override { return new Tracos(*this); }

  private:
    QByteArray desenho_;
};

}  // namespace

QIcon IconeDeTracos(const char* nome) {
    CarregarIcones();
    QFile arquivo(QStringLiteral(":/tarvo/%1.svg").arg(QLatin1String(nome)));
    return arquivo.open(QIODevice::ReadOnly) ? QIcon(new Tracos(arquivo.readAll())) : QIcon();
}

}  // namespace tarvo
