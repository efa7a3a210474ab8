// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "databases/sqlite/Vigilancia.h"
#include "system/files/Descritor.h"

namespace tarvo::mdb {

// The process that reads a file of the desktop engine (relatorios-tarvo-mdb). It stands beside the
// program or library that this code is part of, or in the libexec folder of the same installation.
class ProcessoLeitor {
  public:
    // arquivo: an open descriptor, which stays the caller's. quem may be null. Errors: 445 when the
    // program is not installed, 57 when it cannot be started.
    ProcessoLeitor(int arquivo, const std::vector<std::string>& argumentos,
                   Acompanhante* quem = nullptr);
    // Ends the process where it still runs.
    ~ProcessoLeitor();
    ProcessoLeitor(const ProcessoLeitor&) = delete;
    ProcessoLeitor& operator=(const ProcessoLeitor&) = delete;

    // What the process writes next; 0 at the end. Errors 57, and 18 when quem does not want to
    // wait.
    std::size_t Ler(std::span<char> destino);
    // Waits for the end; True when the process ended as it should.
    bool Esperar();

  private:
    struct Cano {
        int leitura;
        int escrita;
    };
    static Cano AbrirCano();
    ProcessoLeitor(int arquivo, const std::vector<std::string>& argumentos, Cano cano);

    Descritor cano_;
    sqlite::Vigilancia vigilancia_;
    pid_t processo_;
};

}  // namespace tarvo::mdb
