// SPDX-License-Identifier: MIT
#pragma once

#include <QSizeF>
#include <QString>
#include <optional>

namespace tarvo {

// How the magnification follows the view's size.
enum class Ajuste { Livre, PaginaInteira, LarguraDaPagina };

// The arithmetic of the magnification; 1.0 is the size on paper.
namespace Ampliacao {

constexpr double Minima = 0.25;
constexpr double Maxima = 8.0;

// The next magnification of the usual scale (25 %, 33 %, 50 % ...): up when sentido is positive,
// down when it is negative.
double Passo(double ampliacao, int sentido);
// The magnification at which a page of that size at 1.0 fits into livre as ajuste says; both in
// pixels.
double Ajustada(Ajuste ajuste, const QSizeF& papel, const QSizeF& livre);
// "130 %", "137,5 %"
QString Percentual(double ampliacao);
// What a user has typed ("130", "137,5 %"), brought within the limits; nothing when it is no
// number.
std::optional<double> LerPercentual(const QString& texto);

}  // namespace Ampliacao
}  // namespace tarvo
