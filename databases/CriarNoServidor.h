// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "data/Publico.h"

namespace tarvo {

// Makes the tables of a declaration database on a server, all of them or none: empty, or filled by
// a script of SQLite's dialect (see CriarBanco). Errors: those of a connection (see AbrirBanco);
// 3204 it has one of them; 3112 the user may not make tables there; 3027 it is for reading alone.
TARVO_PUBLICO void CriarNoServidor(const std::string& endereco, std::string_view script = {});

}  // namespace tarvo
