#pragma once

#include <filesystem>

#include "system/files/Descritor.h"

namespace tarvo {

// Keeps other processes of this machine that ask for the same from working in a folder, for its
// lifetime or until the process ends, however it does.
class TravaDePasta {
  public:
    // Error 20006 with that text when somebody holds it; the errors of Arquivos.h.
    TravaDePasta(const std::filesystem::path& pasta, const char* seOcupada);

  private:
    Descritor pasta_;
};

}  // namespace tarvo
