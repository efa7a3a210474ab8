// SPDX-License-Identifier: MIT
#include "host/windows/Explicacao.h"

#include <string>

#include "host/commands/Mensagens.h"

namespace tarvo::host {

Erro Explicar(const Erro& erro, std::string_view onde) {
    if (erro.Numero() == NumeroErro::Cancelado) {
        return erro;
    }
    const bool dito = onde.empty() || erro.Descricao().find(onde) != std::string::npos;
    std::string texto = (dito ? "" : std::string(onde) + ": ") + erro.Descricao();
    if (const auto conselho = ConselhoPara(erro); !conselho.empty()) {
        texto.append("\n").append(conselho);
    }
    return {erro.Numero(), texto};
}

}  // namespace tarvo::host
