#include "desktop/AndamentoQt.h"

#include <QApplication>

namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 Paciencia = 1000;  // ms
constexpr qint64 Intervalo = 50;    // ms between two looks at the user's actions

}  // namespace

bool AndamentoQt::PaginaConcluida(std::size_t paginas) {
    if (paginas <= 1 || !tempo_.isValid()) {
        Concluir();
        tempo_.start();
        ultimaPausa_ = 0;
    }
    const auto decorrido = tempo_.elapsed();
    if (decorrido < Paciencia || decorrido < ultimaPausa_ + Intervalo) {
        return true;
    }
    if (dialogo_ == nullptr) {
        dialogo_ = std::make_unique<QProgressDialog>(QApplication::activeWindow());
        dialogo_->setObjectName(u"andamento"_s);
        dialogo_->setWindowTitle(u"Construindo o relatório"_s);
        dialogo_->setCancelButtonText(u"Cancelar"_s);
        dialogo_->setRange(0, 0);
        dialogo_->setAutoReset(false);
        dialogo_->setAutoClose(false);
        dialogo_->setWindowModality(Qt::ApplicationModal);
        dialogo_->setMinimumDuration(0);
        dialogo_->show();
    }
    dialogo_->setLabelText(u"%L1 páginas prontas…"_s.arg(paginas));
    QApplication::processEvents();
    ultimaPausa_ = tempo_.elapsed();
    const bool continuar = !dialogo_->wasCanceled();
    if (!continuar) {
        Concluir();
        tempo_.invalidate();
    }
    return continuar;
}

}  // namespace tarvo
