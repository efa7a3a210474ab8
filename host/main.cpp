#include <csignal>
#include <iostream>

#include "host/Comandos.h"

int main(int argc, char** argv) {
    // Beyond a limit on files' sizes writing fails with an error, like on a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
    return tarvo::host::Executar({argv + 1, argv + argc}, std::cout, std::cerr);
}
