// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "system/files/Descritor.h"

namespace tarvo {

enum class Trava { Exclusiva, Partilhada };

// Keeps others that ask for the same from an open file or folder until it is closed. Error 20006
// with that text when somebody holds it; the errors of Arquivos.h.
void Travar(const Descritor& aberto, Trava trava, const std::filesystem::path& caminho,
            const char* seOcupada);

// Keeps other processes of this machine that ask for the same from working in a folder, for its
// lifetime or until the process ends, however it does.
class TravaDePasta {
  public:
    // The errors of Travar.
    TravaDePasta(const std::filesystem::path& pasta, Trava trava, const char* seOcupada);

  private:
    Descritor pasta_;
};

}  // namespace tarvo
