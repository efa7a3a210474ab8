// SPDX-License-Identifier: MIT
#include "databases/postgresql/Servidor.h"

#include <thread>
#include <utility>

#include "databases/postgresql/FalhaDoServidor.h"

namespace tarvo::postgresql {

namespace {

using namespace std::chrono_literals;
using Relogio = std::chrono::steady_clock;

constexpr auto EsperaQueVolte = 2min;
constexpr auto EntreTentativas = 200ms;

}  // namespace

Servidor::Servidor(std::string endereco, Acompanhante* const& quem)
    : endereco_(std::move(endereco)),
      quem_(quem),
      sessao_(std::make_unique<Sessao>(endereco_, quem_)) {}

void Servidor::EsperarQueVolte(Relogio::time_point inicio) {
    const auto esperado =
        std::chrono::duration_cast<std::chrono::milliseconds>(Relogio::now() - inicio);
    if (quem_ != nullptr && !quem_->Continuar(esperado)) {
        LancarCancelado();
    }
    std::this_thread::sleep_for(EntreTentativas);
}

void Servidor::Insistir(const std::function<void(Sessao&)>& ler,
                        const std::function<void(Sessao&)>& aoMudar) {
    const auto inicio = Relogio::now();
    bool mudou = false;
    for (int tentativa = 0;; ++tentativa) {
        try {
            if (!sessao_) {
                sessao_ = std::make_unique<Sessao>(endereco_, quem_, inicio);
            }
            if (std::exchange(mudou, false)) {
                aoMudar(*sessao_);
            }
            return ler(*sessao_);
        } catch (const FalhaDoServidor& falha) {
            sessao_.reset();
            if (falha.SemPreparadas() && prepara_) {
                prepara_ = false;
            } else if (falha.EsquemaMudou() && tentativa == 0) {
                mudou = true;
            } else if (!falha.Passageira() || Relogio::now() - inicio >= EsperaQueVolte) {
                throw;
            } else if (tentativa > 0) {
                EsperarQueVolte(inicio);
            }
        } catch (...) {
            sessao_.reset();
            throw;
        }
    }
}

}  // namespace tarvo::postgresql
