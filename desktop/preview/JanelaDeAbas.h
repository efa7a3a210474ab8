// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>

#include "desktop/LugarDaJanela.h"

class QTabWidget;

namespace tarvo {

class JanelaVisualizacao;

// A window that shows previews, whose owners keep them, with a tab each. Closing it closes them; it
// goes out of sight with the last one.
class JanelaDeAbas final : public QMainWindow {
  public:
    // preferencias, which may be null and outlives the window, keeps its place.
    explicit JanelaDeAbas(ConfiguracoesIni* preferencias);
    ~JanelaDeAbas() override;

    // In front of the others or where it is; one that is there already gets its new title.
    void Mostrar(JanelaVisualizacao& previa, bool naFrente);
    // Hidden and without a window.
    void Retirar(JanelaVisualizacao& previa);

  protected:
    void closeEvent(QCloseEvent* evento) override;

  private:
    LugarDaJanela lugar_;
    QTabWidget* abas_;
};

}  // namespace tarvo
