// SPDX-License-Identifier: MIT
#include "desktop/ApoioQt.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPixmap>
#include <QTranslator>

#include "document/Imagens.h"

namespace tarvo {

using namespace Qt::StringLiterals;

QString NomeSeguro(QString texto) {
    for (auto& letra : texto) {
        letra = letra == u'/' || letra.category() == QChar::Other_Control ? QChar(u'-') : letra;
    }
    return texto;
}

QIcon IconeDe(const Imagem* imagem) {
    QPixmap figura;
    if (imagem != nullptr) {
        figura.loadFromData(imagem->bytes.data(), static_cast<uint>(imagem->bytes.size()));
    }
    return figura.isNull() ? QIcon() : QIcon(figura);
}

void InstalarTraducao() {
    const QLocale brasil(QLocale::Portuguese, QLocale::Brazil);
    QLocale::setDefault(brasil);
    auto* tradutor = new QTranslator(QCoreApplication::instance());
    if (tradutor->load(brasil, u"qtbase"_s, u"_"_s,
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(tradutor);
    }
}

}  // namespace tarvo
