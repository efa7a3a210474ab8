// SPDX-License-Identifier: MIT
#include "bench/LacoQPainter.h"

#include <QBuffer>
#include <QByteArray>
#include <QFont>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <map>

#include "document/Imagens.h"

namespace tarvo::bench {

namespace {

constexpr int Resolucao = 1200;
constexpr double PorCm = Resolucao / 2.54;

QColor Cor(std::int32_t cor) {
    return {cor & 0xFF, (cor >> 8) & 0xFF, (cor >> 16) & 0xFF};
}

class Laco {
  public:
    Laco(QPainter& pintor, const Conteudo& conteudo) : pintor_(pintor), conteudo_(conteudo) {}

    void Pagina(std::size_t numero) {
        numero_ = static_cast<int>(numero) + 1;
        for (const auto& primitiva : conteudo_.paginas[numero]) {
            std::visit([this](const auto& p) { Desenhar(p); }, primitiva);
        }
    }

  private:
    [[nodiscard]] QRectF Retangulo(const Caixa& c) const {
        return {(conteudo_.margens.esquerda + c.x) * PorCm,
                (conteudo_.margens.superior + c.y) * PorCm, c.largura * PorCm, c.altura * PorCm};
    }
    static double Espessura(int unidades) { return unidades * 0.5 * Resolucao / 72; }

    void Desenhar(const Linha& l) {
        const QRectF r = Retangulo(l.caixa);
        pintor_.setPen(
            QPen(Qt::black, Espessura(l.espessura), l.estilo == 2 ? Qt::DotLine : Qt::SolidLine));
        pintor_.drawLine(r.topLeft(), r.bottomRight());
    }
    void Desenhar(const tarvo::Retangulo& r) {
        Contorno(r);
        pintor_.drawRect(Retangulo(r.caixa));
    }
    void Desenhar(const RetanguloArredondado& r) {
        Contorno(r);
        pintor_.drawRoundedRect(Retangulo(r.caixa), r.raio * PorCm, r.raio * PorCm);
    }
    void Desenhar(const Texto& t) {
        QFont fonte(QString::fromStdString(conteudo_.fontes[t.fonte]));
        fonte.setPointSizeF(t.tamanho);
        fonte.setBold(t.negrito);
        constexpr int Horizontais[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
        constexpr int Verticais[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
        pintor_.setFont(fonte);
        pintor_.setPen(Cor(t.cor));
        const int opcoes = Horizontais[t.horizontal] | Verticais[t.vertical] |
                           (t.multilinha ? Qt::TextWordWrap : Qt::TextSingleLine);
        pintor_.drawText(Retangulo(t.caixa), opcoes, Substituir(t.texto));
    }
    void Desenhar(const Figura& f) {
        QImage& imagem = imagens_[f.imagem];
        if (imagem.isNull()) {
            imagem.loadFromData(
                QByteArray::fromRawData(reinterpret_cast<const char*>(f.imagem->bytes.data()),
                                        static_cast<qsizetype>(f.imagem->bytes.size())));
        }
        pintor_.drawImage(Retangulo(f.caixa), imagem);
    }

    template <class R>
    void Contorno(const R& r) {
        pintor_.setPen(QPen(Cor(r.corBorda), Espessura(r.espessura)));
        pintor_.setBrush(r.preenchido ? QBrush(Cor(r.corPreenchimento)) : QBrush(Qt::NoBrush));
    }

    [[nodiscard]] QString Substituir(const std::string& utf8) const {
        QString texto = QString::fromStdString(utf8);
        if (texto.contains(QLatin1String("%%"))) {
            texto.replace(QLatin1String("%%p"), QString::number(numero_));
            texto.replace(QLatin1String("%%P"),
                          QString::number(static_cast<qulonglong>(conteudo_.paginas.size())));
        }
        return texto;
    }

    QPainter& pintor_;
    const Conteudo& conteudo_;
    int numero_ = 0;
    std::map<const Imagem*, QImage> imagens_;
};

}  // namespace

std::size_t DesenharComQPainter(const Conteudo& conteudo) {
    QByteArray bytes;
    QBuffer destino(&bytes);
    destino.open(QIODevice::WriteOnly);
    QPdfWriter pdf(&destino);
    pdf.setResolution(Resolucao);
    pdf.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()));
    QPainter pintor(&pdf);
    Laco laco(pintor, conteudo);
    for (std::size_t pagina = 0; pagina < conteudo.paginas.size(); ++pagina) {
        if (pagina > 0) {
            pdf.newPage();
        }
        laco.Pagina(pagina);
    }
    pintor.end();
    return static_cast<std::size_t>(bytes.size());
}

}  // namespace tarvo::bench
