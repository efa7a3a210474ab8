// SPDX-License-Identifier: MIT
#include "host/commands/Interrupcao.h"

#include <cstddef>

namespace tarvo::host {

namespace {

std::atomic<bool> Chegou = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler writes it");

}  // namespace

CapturaDeInterrupcao::CapturaDeInterrupcao() {
    Chegou = false;
    for (std::size_t i = 0; i < Sinais.size(); ++i) {
        sigaction(Sinais[i], nullptr, &anteriores_[i]);
        if (anteriores_[i].sa_handler != SIG_IGN) {
            struct sigaction acao {};
            acao.sa_handler = [](int /*sinal*/) { Chegou = true; };
            acao.sa_flags = SA_RESTART;
            sigaction(Sinais[i], &acao, nullptr);
        }
    }
}

CapturaDeInterrupcao::~CapturaDeInterrupcao() {
    for (std::size_t i = 0; i < Sinais.size(); ++i) {
        sigaction(Sinais[i], &anteriores_[i], nullptr);
    }
}

bool Interrompido() {
    return Chegou;
}

bool CancelaSeInterrompido::Continuar(std::chrono::milliseconds aguardando) {
    constexpr std::chrono::milliseconds Paciencia(1000);
    const bool demora = aguardando >= Paciencia;
    if (demora && !avisou_.exchange(true) && avisar_) {
        avisar_("aguardando o banco: outro programa o usa, ou o servidor não responde");
    }
    if (!demora) {
        avisou_ = false;
    }
    return !Interrompido();
}

}  // namespace tarvo::host
