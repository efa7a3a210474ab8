// SPDX-License-Identifier: MIT
#include "desktop/DialogoDeSalvar.h"

#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QScreen>
#include <QStandardPaths>
#include <QTreeView>

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

QFileDialog* NovoDialogoDeArquivo(QWidget* janela, const QString& titulo) {
    constexpr QSize Preferido(780, 480);
    auto* dialogo = new QFileDialog(janela, titulo);
    dialogo->setAttribute(Qt::WA_DeleteOnClose);
    const auto documentos = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    dialogo->setDirectory(QDir(documentos).exists() ? documentos : QDir::homePath());
    if (auto* detalhes = dialogo->findChild<QTreeView*>()) {
        detalhes->header()->setStretchLastSection(true);  // or its title is cut
    }
    dialogo->resize(Preferido.boundedTo(janela->screen()->availableSize() - QSize(20, 60)));
    return dialogo;
}

void PerguntarOndeSalvar(QWidget* janela, const QString& titulo, const QString& nome,
                         const QStringList& tipos,
                         const std::function<void(const QString& arquivo)>& salvar) {
    auto* dialogo = NovoDialogoDeArquivo(janela, titulo);
    dialogo->setAcceptMode(QFileDialog::AcceptSave);
    dialogo->setNameFilters(tipos);
    dialogo->setDefaultSuffix(TerminacaoDe(tipos.first()));
    Ligar(dialogo, &QFileDialog::filterSelected, dialogo,
          [dialogo](const QString& tipo) { dialogo->setDefaultSuffix(TerminacaoDe(tipo)); });
    dialogo->selectFile(NomeSeguro(nome) + u'.' + dialogo->defaultSuffix());
    Ligar(dialogo, &QFileDialog::fileSelected, janela, salvar);
    dialogo->open();
}

}  // namespace tarvo
