// SPDX-License-Identifier: MIT
#include "desktop/DialogoDeSalvar.h"

#include <QFileDialog>
#include <QStandardPaths>

#include "desktop/ApoioQt.h"
#include "desktop/Ligacao.h"

namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

// "pdf" of "Documentos PDF (*.pdf)"
QString TerminacaoDe(const QString& tipo) {
    return tipo.section(u"*."_s, -1).chopped(1);
}

}  // namespace

void PerguntarOndeSalvar(QWidget* janela, const QString& titulo, const QString& nome,
                         const QStringList& tipos,
                         const std::function<void(const QString& arquivo)>& salvar) {
    auto* dialogo = new QFileDialog(janela, titulo);
    dialogo->setAttribute(Qt::WA_DeleteOnClose);
    dialogo->setAcceptMode(QFileDialog::AcceptSave);
    dialogo->setNameFilters(tipos);
    dialogo->setDefaultSuffix(TerminacaoDe(tipos.first()));
    Ligar(dialogo, &QFileDialog::filterSelected, dialogo,
          [dialogo](const QString& tipo) { dialogo->setDefaultSuffix(TerminacaoDe(tipo)); });
    dialogo->setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialogo->selectFile(NomeSeguro(nome) + u'.' + dialogo->defaultSuffix());
    Ligar(dialogo, &QFileDialog::fileSelected, janela, salvar);
    dialogo->open();
}

}  // namespace tarvo
