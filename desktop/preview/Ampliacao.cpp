// SPDX-License-Identifier: MIT
#include "desktop/preview/Ampliacao.h"

#include <QLocale>
#include <algorithm>
#include <cmath>

namespace tarvo::Ampliacao {

namespace {

constexpr double Passos[] = {0.25, 0.33, 0.5, 0.67, 0.75, 0.9, 1.0, 1.1,
                             1.25, 1.5,  2.0, 3.0,  4.0,  5.0, 6.0, 8.0};

}  // namespace

double Passo(double ampliacao, int sentido) {
    constexpr double Folga = 0.005;
    if (sentido > 0) {
        const auto* passo =
            std::upper_bound(std::begin(Passos), std::end(Passos), ampliacao + Folga);
        return passo != std::end(Passos) ? *passo : Maxima;
    }
    const auto* passo = std::lower_bound(std::begin(Passos), std::end(Passos), ampliacao - Folga);
    return passo != std::begin(Passos) ? *(passo - 1) : Minima;
}

double Ajustada(Ajuste ajuste, const QSizeF& papel, const QSizeF& livre) {
    constexpr double MinimaDoAjuste = 0.05;  // a window may be smaller than any page
    const double largura = livre.width() / papel.width();
    const double altura = livre.height() / papel.height();
    return std::clamp(ajuste == Ajuste::PaginaInteira ? std::min(largura, altura) : largura,
                      MinimaDoAjuste, Maxima);
}

QString Percentual(double ampliacao) {
    const double percentual = std::round(ampliacao * 1000) / 10;
    const int casas = percentual == std::floor(percentual) ? 0 : 1;
    return QStringLiteral("%1 %").arg(
        QLocale(QLocale::Portuguese, QLocale::Brazil).toString(percentual, 'f', casas));
}

std::optional<double> LerPercentual(const QString& texto) {
    bool numero = false;
    const double percentual =
        QString(texto).remove(u'%').replace(u',', u'.').trimmed().toDouble(&numero);
    if (!numero || !std::isfinite(percentual)) {
        return std::nullopt;
    }
    return std::clamp(percentual / 100, Minima, Maxima);
}

}  // namespace tarvo::Ampliacao
