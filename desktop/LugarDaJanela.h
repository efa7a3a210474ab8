// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <string_view>
#include <vector>

class QWidget;

namespace tarvo {

class ConfiguracoesIni;

// Where the windows of one kind open: as large as the user left the last one, inside what their
// screen has free, and not on top of each other.
class LugarDaJanela {
  public:
    // configuracoes, which may be null and outlives the object, keeps the place under secao.
    LugarDaJanela(ConfiguracoesIni* configuracoes, std::string_view secao, const QSize& padrao)
        : configuracoes_(configuracoes), secao_(secao), padrao_(padrao) {}

    // Before the window is shown. Others of its kind are the visible windows of its object name.
    void Colocar(QWidget& janela);
    // Keeps size and state, and the place when the user has chosen one.
    void Gravar(const QWidget& janela) const;

    // The first place from preferido on, each a step further down and to the right and around the
    // ends of area, at which none of the others stands. A window as large as area has one place.
    static QPoint Livre(const QRect& area, const QPoint& preferido, const QSize& tamanho,
                        const std::vector<QPoint>& outras);

  private:
    ConfiguracoesIni* configuracoes_;
    std::string_view secao_;
    QSize padrao_;
    QPoint preferido_;  // what the store has, or the default
    QPoint colocada_;   // where Colocar put the window
};

}  // namespace tarvo
