#pragma once

#include <memory>
#include <string>

#include "data/BancoDados.h"
#include "data/OpcoesAbertura.h"
#include "data/Publico.h"

namespace tarvo {

// Opens the declaration database that stands at an address: a file's path or a connection URI
// ("postgresql://…"). Which engine opens it is told by what stands there, never by its name. Never
// creates anything. Errors: those of BancoSQLite::Abrir; 445 for a kind of database that this
// installation does not read.
TARVO_PUBLICO std::unique_ptr<BancoDados> AbrirBanco(const std::string& endereco,
                                                     const OpcoesAbertura& opcoes = {});

}  // namespace tarvo
