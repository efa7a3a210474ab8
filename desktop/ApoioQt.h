// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QString>
#include <string>
#include <string_view>

// What the desktop's windows share: texts and images of the library in Qt's types, Portuguese for
// Qt's own dialogs.
namespace tarvo {

struct Imagem;

inline QString ParaQt(std::string_view texto) {
    return QString::fromUtf8(texto.data(), static_cast<qsizetype>(texto.size()));
}

// The text as the name of a file, or a part of it.
QString NomeSeguro(QString texto);

// An empty icon for a null image.
QIcon IconeDe(const Imagem* imagem);

// Texts of Qt's own dialogs in Brazilian Portuguese, for the whole program; once per program, after
// the QApplication was made.
void InstalarTraducao();

}  // namespace tarvo
