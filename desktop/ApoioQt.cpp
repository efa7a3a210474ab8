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

namespace {

// What Qt's own translation leaves in English in its file dialog.
class TextosQueFaltam final : public QTranslator {
  public:
    using QTranslator::QTranslator;
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char* contexto, const char* texto, const char*,
                                    int) const override {
        struct Traducao {
            std::string_view contexto, texto, traduzido;
        };
        static constexpr Traducao Textos[] = {
            {"QAbstractFileIconProvider", "Folder", "Pasta"},
            {"QAbstractFileIconProvider", "File", "Arquivo"},
            {"QAbstractFileIconProvider", "%1 File", "Arquivo %1"},
            {"QAbstractFileIconProvider", "Drive", "Unidade"},
            {"QAbstractFileIconProvider", "Shortcut", "Atalho"},
            {"QSideBar", "Remove", "Remover"},
        };
        for (const auto& um : Textos) {
            if (um.contexto == contexto && um.texto == texto) {
                return ParaQt(um.traduzido);
            }
        }
        return {};
    }
};

}  // namespace

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
    QCoreApplication::installTranslator(new TextosQueFaltam(QCoreApplication::instance()));
}

}  // namespace tarvo
