// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>

#include "tests/support/Apoio.h"

namespace tarvo::apoio {

// A CUPS scheduler and a printer of the test's own, the print service of this process while the
// object lives. Queues: Laser (prepares the pages), Direta (bytes as sent), Parada (stopped),
// Recusa (accepts no jobs); no default printer. Jobs above 2 MB are refused halfway.
class ServicoDeImpressao {
  public:
    ServicoDeImpressao();
    ~ServicoDeImpressao();
    ServicoDeImpressao(const ServicoDeImpressao&) = delete;
    ServicoDeImpressao& operator=(const ServicoDeImpressao&) = delete;

    // The file that the printer got as that job; waits for it. Fails the test after 30 s.
    [[nodiscard]] std::filesystem::path Chegada(const std::string& nomeDoTrabalho) const;
    // What the queue holds of the job's options, as bytes.
    [[nodiscard]] std::string Opcoes(int trabalho) const;
    // How many jobs the service has ever taken.
    [[nodiscard]] std::ptrdiff_t Trabalhos() const;

  private:
    PastaTemporaria pasta_;
    FILE* processo_ = nullptr;  // ends with its standard input
};

// A print service that takes connections and then says nothing; that of this process while the
// object lives. The print library reads where its service is once per thread.
class ServicoMudo {
  public:
    ServicoMudo();
    ~ServicoMudo();
    ServicoMudo(const ServicoMudo&) = delete;
    ServicoMudo& operator=(const ServicoMudo&) = delete;

    // Returns once a client has connected.
    void EsperarCliente();

  private:
    int escuta_;
    int cliente_ = -1;
};

}  // namespace tarvo::apoio
