// SPDX-License-Identifier: MIT
#include "host/example/Exemplo.h"

#include "embutido/exemplo.h"

namespace tarvo {

std::string_view ScriptDeExemplo() {
    return {reinterpret_cast<const char*>(embutido::exemplo), sizeof embutido::exemplo};
}

}  // namespace tarvo
