#include <iostream>

#include "host/desktop/ProgramaComJanelas.h"

int main(int argc, char** argv) {
    return tarvo::host::ExecutarComJanelas(argc, argv, std::cerr);
}
