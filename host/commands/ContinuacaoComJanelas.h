// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tarvo::host {

// Replaces this process by the program with the windows (relatorios-tarvo-janela), which stands
// beside this one or in its libexec folder, with the same arguments. It is a program of its own so
// that commands without a window load no GUI library. Returns only by error 445, when that program
// is not installed.
[[noreturn]] void ContinuarComJanelas(const std::vector<std::string>& argumentos);

}  // namespace tarvo::host
