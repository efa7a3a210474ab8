// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <exception>

#include "data/Acompanhante.h"

struct sqlite3;

namespace tarvo::sqlite {

// What stands between SQLite's work and the one who may end it. SQLite calls it in the middle of a
// statement, where nothing may be thrown: what ended the statement is kept until it has returned.
class Vigilancia {
  public:
    // Has a connection of our own ask while its statements run and while they wait for a lock. A
    // host's connection keeps its own handlers.
    void Instalar(sqlite3* db);

    Acompanhante* Acompanhar(Acompanhante* quem);
    // False when the statement is to end. Asks only some twenty times a second.
    bool Continuar(std::chrono::milliseconds aguardando) noexcept;
    // Throws what ended the last statement, if it was we.
    void LancarSeParou();
    // While it says so, a lock is an error at once.
    void Esperar(bool espera) { espera_ = espera; }

    // How long to sleep before the attempt of that number, from 0, at a lock.
    static std::chrono::milliseconds Pausa(int tentativa);

  private:
    using Relogio = std::chrono::steady_clock;
    bool EsperarPelaTrava(int tentativa) noexcept;

    Acompanhante* quem_ = nullptr;
    Relogio::time_point ultimaPergunta_;
    Relogio::time_point inicioDaEspera_;
    bool espera_ = true;
    std::exception_ptr parada_;
};

}  // namespace tarvo::sqlite
