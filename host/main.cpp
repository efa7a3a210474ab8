// SPDX-License-Identifier: MIT
#include <sys/resource.h>

#include <csignal>
#include <iostream>

#include "host/Comandos.h"

namespace {

// The pictures of a long document's pages are open files, all at once.
void PermitirMuitosArquivos() {
    rlimit limite{};
    if (::getrlimit(RLIMIT_NOFILE, &limite) == 0) {
        limite.rlim_cur = limite.rlim_max;
        ::setrlimit(RLIMIT_NOFILE, &limite);
    }
}

}  // namespace

int main(int argc, char** argv) {
    PermitirMuitosArquivos();
    // Beyond a limit on files' sizes writing fails with an error, like on a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
    return tarvo::host::Executar({argv + 1, argv + argc}, std::cout, std::cerr);
}
