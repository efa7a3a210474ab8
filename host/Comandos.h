// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace tarvo::host {

// The command line without the program's name. Returns the exit status (see Mensagens.h).
int Executar(const std::vector<std::string>& argumentos, std::ostream& saida, std::ostream& erros);

}  // namespace tarvo::host
