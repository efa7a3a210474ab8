// SPDX-License-Identifier: MIT
#include "host/commands/Console.h"

#include "data/Legivel.h"

namespace tarvo::host {

void Console::Dizer(std::string_view linha) {
    Saida() << Legivel(linha) << "\n";
}

void Console::Avisar(std::string_view aviso) {
    if (!modo_.silencioso) {
        erros_ << "aviso: " << Legivel(aviso) << "\n";
    }
}

}  // namespace tarvo::host
