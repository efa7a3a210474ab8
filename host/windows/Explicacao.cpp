// SPDX-License-Identifier: MIT
#include "host/windows/Explicacao.h"

#include <sstream>
#include <string>

#include "host/commands/Mensagens.h"

namespace tarvo::host {

Erro Explicar(const Erro& erro, std::string_view onde) {
    if (erro.Numero() == NumeroErro::Cancelado) {
        return erro;
    }
    const bool dito = onde.empty() || erro.Descricao().find(onde) != std::string::npos;
    std::ostringstream texto;
    texto << (dito ? "" : std::string(onde) + ": ") << erro.Descricao() << "\n";
    DizerConselho(texto, erro);
    auto descricao = texto.str();
    descricao.pop_back();
    return {erro.Numero(), descricao};
}

}  // namespace tarvo::host
