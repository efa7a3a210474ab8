// SPDX-License-Identifier: MIT
#include "desktop/Icones.h"

#include <QBuffer>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>
#include <QPalette>

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
        const double escala = pintura->device()->devicePixelRatioF();
        pintura->drawImage(area, Desenhar(area.size() * escala, modo));
    }
    QPixmap pixmap(const QSize& tamanho, QIcon::Mode modo, QIcon::State) override {
        return QPixmap::fromImage(Desenhar(tamanho, modo));
    }
    [[nodiscard]] QIconEngine* clone() const override { return new Tracos(*this); }

  private:
    [[nodiscard]] QImage Desenhar(const QSize& pixels, QIcon::Mode modo) const {
        const auto grupo = modo == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto cor = QGuiApplication::palette().color(grupo, QPalette::WindowText);
        QByteArray colorido(desenho_);
        QBuffer bytes(&colorido.replace("currentColor", cor.name().toLatin1()));
        QImageReader leitor(&bytes, "svg");  // Qt's reader of drawings, a plug-in
        leitor.setScaledSize(pixels);
        return leitor.read();
    }

    QByteArray desenho_;
};

}  // namespace

QIcon IconeDeTracos(const char* nome) {
    CarregarIcones();
    QFile arquivo(QStringLiteral(":/tarvo/%1.svg").arg(QLatin1String(nome)));
    return arquivo.open(QIODevice::ReadOnly) ? QIcon(new Tracos(arquivo.readAll())) : QIcon();
}

}  // namespace tarvo
