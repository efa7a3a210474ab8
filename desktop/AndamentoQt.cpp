// SPDX-License-Identifier: MIT
#include "desktop/AndamentoQt.h"

#include <QApplication>
#include <utility>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 Paciencia = 500;  // ms
constexpr qint64 Silencio = 1000;  // ms without a question, after which another work has begun
constexpr qint64 Intervalo = 50;   // ms between two looks at the user's actions

}  // namespace

bool AndamentoQt::PaginaConcluida(std::size_t paginas) {
    if (paginas <= 1) {
        Concluir();
    }
    return Perguntar(u"%L1 páginas prontas…"_s.arg(paginas));
}

bool AndamentoQt::Continuar(std::chrono::milliseconds aguardando) {
    return Perguntar(
        aguardando.count() > 0
            ? u"Aguardando o banco: outro programa o usa, ou o servidor não responde…"_s
            : u"Lendo o banco…"_s);
}

bool AndamentoQt::Preparando() {
    return Perguntar(u"Preparando as páginas…"_s);
}

void AndamentoQt::Concluir() {
    dialogo_.reset();
    tempo_.invalidate();
#ifdef __GLIBC__
    if (std::exchange(cancelado_, false)) {
        malloc_trim(0);  // thousands of pages in small pieces, of which the system sees none
    }
#endif
}

// Looks at the user's actions, once the work has lasted long enough.
bool AndamentoQt::Perguntar(const QString& situacao) {
    // After a silence, as while the user looks at another window, the patience begins anew.
    if (!tempo_.isValid() || (dialogo_ == nullptr && ultimaPergunta_.hasExpired(Silencio))) {
        tempo_.start();
        ultimaPausa_ = 0;
    }
    ultimaPergunta_.start();
    const auto decorrido = tempo_.elapsed();
    if (decorrido < Paciencia || decorrido < ultimaPausa_ + Intervalo) {
        return true;
    }
    if (dialogo_ == nullptr) {
        dialogo_ = std::make_unique<QProgressDialog>(QApplication::activeWindow());
        dialogo_->setObjectName(u"andamento"_s);
        dialogo_->setWindowTitle(u"Um momento"_s);
        dialogo_->setCancelButtonText(u"Cancelar"_s);
        dialogo_->setRange(0, 0);
        dialogo_->setAutoReset(false);
        dialogo_->setAutoClose(false);
        dialogo_->setWindowModality(Qt::ApplicationModal);
        dialogo_->setMinimumDuration(0);
        dialogo_->show();
    }
    dialogo_->setLabelText(situacao);
    QApplication::processEvents();
    ultimaPausa_ = tempo_.elapsed();
    const bool continuar = !dialogo_->wasCanceled();
    if (!continuar) {
        Concluir();
        cancelado_ = true;
    }
    return continuar;
}

}  // namespace tarvo
