// SPDX-License-Identifier: MIT
#include "desktop/preview/Miniaturas.h"

#include <QAbstractListModel>
#include <QPainter>
#include <QPixmap>
#include <QScrollBar>

#include "desktop/Ligacao.h"

namespace tarvo {

namespace {

constexpr int Altura = 150;  // of a picture

}  // namespace

class Miniaturas::Modelo final : public QAbstractListModel {
  public:
    explicit Modelo(QWidget* vista) : QAbstractListModel(vista), vista_(vista) {}

    void Mostrar(PintorPaginas* pintor) {
        beginResetModel();
        pintor_ = pintor;
        endResetModel();
    }
    [[nodiscard]] int rowCount(const QModelIndex& pai = {}) const override {
        return pai.isValid() || pintor_ == nullptr ? 0 : pintor_->Paginas();
    }
    [[nodiscard]] QVariant data(const QModelIndex& indice, int papel) const override {
        switch (papel) {
            case Qt::DisplayRole:
                return QString::number(indice.row() + 1);
            case Qt::AccessibleTextRole:
                return QStringLiteral("Página %1").arg(indice.row() + 1);
            case Qt::DecorationRole:
                return Figura(indice.row());
            default:
                return {};
        }
    }

  private:
    [[nodiscard]] QPixmap Figura(int pagina) const {
        const double densidade = vista_->devicePixelRatioF();
        const QSizeF papel = pintor_->Pontos().scaled(Altura, Altura, Qt::KeepAspectRatio);
        const QSize pixels = (papel * densidade).toSize();
        const Recorte recorte{pagina, pixels, QRect(QPoint(), pixels)};
        QPixmap figura(pixels);
        figura.fill(Qt::white);
        QPainter pintura(&figura);
        if (const QImage* imagem = pintor_->Pronta(recorte)) {
            pintura.drawImage(0, 0, *imagem);
        } else {
            pintor_->PedirMiniatura(recorte);
        }
        pintura.setPen(Qt::gray);
        pintura.drawRect(figura.rect().adjusted(0, 0, -1, -1));
        figura.setDevicePixelRatio(densidade);
        return figura;
    }

    QWidget* vista_;
    PintorPaginas* pintor_ = nullptr;
};

Miniaturas::Miniaturas(QWidget* pai) : QListView(pai), modelo_(new Modelo(this)) {
    setObjectName(QStringLiteral("miniaturas"));
    setAccessibleName(QStringLiteral("Miniaturas das páginas"));
    setModel(modelo_);
    setViewMode(QListView::IconMode);
    setFlow(QListView::TopToBottom);
    setWrapping(false);
    setMovement(QListView::Static);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    setSpacing(4);
    setIconSize({Altura, Altura});
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    verticalScrollBar()->setSingleStep(40);
    Ligar(selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& atual) {
              if (aoEscolher && atual.isValid()) {
                  aoEscolher(atual.row());
              }
          });
}

Miniaturas::~Miniaturas() = default;

QSize Miniaturas::sizeHint() const {
    return {Altura + 40, Altura};
}

void Miniaturas::Mostrar(PintorPaginas* pintor) {
    modelo_->Mostrar(pintor);
}

void Miniaturas::Marcar(int pagina) {
    const auto indice = modelo_->index(pagina, 0);
    if (indice.isValid() && indice != currentIndex()) {
        const auto escolher = std::exchange(aoEscolher, nullptr);
        setCurrentIndex(indice);
        aoEscolher = escolher;
        scrollTo(indice);
    }
}

}  // namespace tarvo
