#include "desktop/Icones.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <sstream>
#include <string>

namespace tarvo {

namespace {

QPainterPath LerTracos(std::string_view tracos) {
    std::istringstream leitura{std::string(tracos)};
    leitura.imbue(std::locale::classic());
    QPainterPath caminho;
    char comando = 0;
    double x = 0;
    double y = 0;
    while (leitura >> comando >> x >> y) {
        if (comando == 'M') {
            caminho.moveTo(x, y);
        } else if (comando == 'L') {
            caminho.lineTo(x, y);
        } else {
            double raio = 0;
            leitura >> raio;
            caminho.addEllipse(QPointF(x, y), raio, raio);
        }
    }
    return caminho;
}

class Tracos final : public QIconEngine {
  public:
    explicit Tracos(std::string_view tracos) : caminho_(LerTracos(tracos)) {}

    void paint(QPainter* pintura, const QRect& area, QIcon::Mode modo, QIcon::State) override {
        const auto grupo = modo == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const double escala = area.width() / 24.0;
        pintura->save();
        pintura->setRenderHint(QPainter::Antialiasing);
        pintura->translate(area.topLeft());
        pintura->scale(escala, escala);
        pintura->setPen(QPen(QGuiApplication::palette().color(grupo, QPalette::WindowText), 1.7,
                             Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        pintura->drawPath(caminho_);
        pintura->restore();
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
    QPainterPath caminho_;
};

}  // namespace

QIcon IconeDeTracos(std::string_view tracos) {
    return tracos.empty() ? QIcon() : QIcon(new Tracos(tracos));
}

}  // namespace tarvo
