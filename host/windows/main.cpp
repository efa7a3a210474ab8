// SPDX-License-Identifier: MIT
#include <iostream>

#include "host/windows/ComandosComJanelas.h"

int main(int argc, char** argv) {
    return tarvo::host::ExecutarComJanelas(argc, argv, std::cerr);
}
