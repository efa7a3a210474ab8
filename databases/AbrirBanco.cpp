// SPDX-License-Identifier: MIT
#include "databases/AbrirBanco.h"

#include "databases/OrigemBanco.h"

namespace tarvo {

std::unique_ptr<BancoDados> AbrirBanco(const std::string& endereco, const OpcoesAbertura& opcoes) {
    return OrigemBanco(endereco, opcoes).Abrir();
}

}  // namespace tarvo
