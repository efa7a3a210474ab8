// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class QFileDialog;
class QWidget;

namespace tarvo {

// A file dialog at the user's documents, or where there is no folder for them at home, which goes
// when it is closed.
QFileDialog* NovoDialogoDeArquivo(QWidget* janela, const QString& titulo);

// Asks where a file is to be saved, in the user's documents, under that name (without its ending)
// and as one of those kinds ("Documentos PDF (*.pdf)"), the first one at first; then, on behalf of
// the window, calls salvar with the file. An error is told over the window.
void PerguntarOndeSalvar(QWidget* janela, const QString& titulo, const QString& nome,
                         const QStringList& tipos,
                         const std::function<void(const QString& arquivo)>& salvar);

}  // namespace tarvo
