// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <atomic>
#include <csignal>
#include <functional>
#include <string>
#include <utility>

#include "document/Ambiente.h"
#include "host/commands/Console.h"

// Stopping a long command from outside.
namespace tarvo::host {

class Console;

// Catches SIGINT, SIGTERM and SIGHUP for its lifetime; those that the process was told to ignore
// stay ignored. One at a time in a process.
class CapturaDeInterrupcao {
  public:
    CapturaDeInterrupcao();
    ~CapturaDeInterrupcao();
    CapturaDeInterrupcao(const CapturaDeInterrupcao&) = delete;
    CapturaDeInterrupcao& operator=(const CapturaDeInterrupcao&) = delete;

  private:
    static constexpr std::array Sinais{SIGINT, SIGTERM, SIGHUP};
    std::array<struct sigaction, Sinais.size()> anteriores_{};
};

// Whether one of the signals has come. Any thread may ask.
bool Interrompido();

// Cancels what is being done once a signal has come: the build of a report at the next page, a
// query at once. Warns, where told how, that the database keeps it waiting.
class CancelaSeInterrompido final : public Andamento {
  public:
    explicit CancelaSeInterrompido(std::function<void(const std::string& aviso)> avisar = {})
        : avisar_(std::move(avisar)) {}
    explicit CancelaSeInterrompido(Console* console)
        : avisar_([console](const std::string& aviso) { console->Avisar(aviso); }) {}
    bool PaginaConcluida(std::size_t /*paginas*/) override { return !Interrompido(); }
    bool Continuar(std::chrono::milliseconds aguardando) override;

  private:
    std::function<void(const std::string& aviso)> avisar_;
    std::atomic<bool> avisou_ = false;  // of this wait; several threads may ask
};

}  // namespace tarvo::host
