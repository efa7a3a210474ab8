#include <iostream>

#include "host/Comandos.h"

int main(int argc, char** argv) {
    return tarvo::host::Executar({argv + 1, argv + argc}, std::cout, std::cerr);
}
