// SPDX-License-Identifier: MIT
#include "databases/sqlite/Vigilancia.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <thread>
#include <utility>

#include "data/CodigosDeErros.h"

namespace tarvo::sqlite {

namespace {

using namespace std::chrono_literals;

constexpr int InstrucoesEntrePerguntas = 1000;  // of SQLite's virtual machine: some microseconds
constexpr auto EntrePerguntas = 50ms;
constexpr auto EsperaPorTrava = 2s;

}  // namespace

void Vigilancia::Instalar(sqlite3* db) {
    sqlite3_progress_handler(
        db, InstrucoesEntrePerguntas,
        [](void* esta) { return static_cast<Vigilancia*>(esta)->Continuar(0ms) ? 0 : 1; }, this);
    sqlite3_busy_handler(
        db,
        [](void* esta, int tentativa) {
            return static_cast<Vigilancia*>(esta)->EsperarPelaTrava(tentativa) ? 1 : 0;
        },
        this);
}

Acompanhante* Vigilancia::Acompanhar(Acompanhante* quem) {
    ultimaPergunta_ = Relogio::now();
    return std::exchange(quem_, quem);
}

bool Vigilancia::Continuar(std::chrono::milliseconds aguardando) noexcept {
    if (quem_ == nullptr) {
        return true;
    }
    const auto agora = Relogio::now();
    if (agora - ultimaPergunta_ < EntrePerguntas) {
        return true;
    }
    try {
        if (!quem_->Continuar(aguardando)) {
            LancarCancelado();
        }
    } catch (...) {
        parada_ = std::current_exception();
    }
    ultimaPergunta_ = Relogio::now();  // answering may take long: a window was shown
    return parada_ == nullptr;
}

void Vigilancia::LancarSeParou() {
    if (parada_ != nullptr) {
        std::rethrow_exception(std::exchange(parada_, nullptr));
    }
}

std::chrono::milliseconds Vigilancia::Pausa(int tentativa) {
    constexpr std::array Pausas{1ms, 2ms, 5ms, 10ms, 15ms, 20ms, 25ms};
    return Pausas.at(std::min(static_cast<std::size_t>(tentativa), Pausas.size() - 1));
}

bool Vigilancia::EsperarPelaTrava(int tentativa) noexcept {
    const auto agora = Relogio::now();
    if (tentativa == 0) {
        inicioDaEspera_ = agora;
    }
    const auto esperado =
        std::chrono::duration_cast<std::chrono::milliseconds>(agora - inicioDaEspera_);
    if (!espera_ || esperado >= EsperaPorTrava || !Continuar(esperado)) {
        return false;
    }
    std::this_thread::sleep_for(Pausa(tentativa));
    return true;
}

}  // namespace tarvo::sqlite
