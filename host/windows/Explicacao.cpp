// SPDX-License-Identifier: MIT
#include "host/windows/Explicacao.h"

#include <sstream>
#include <string>

#include "desktop/ApoioQt.h"
#include "host/commands/Mensagens.h"

namespace tarvo::host {

using namespace Qt::StringLiterals;

Erro Explicar(const Erro& erro, std::string_view onde) {
    if (erro.Numero() == NumeroErro::Cancelado) {
        return erro;
    }
    const bool dito = onde.empty() || erro.Descricao().find(onde) != std::string::npos;
    std::ostringstream texto;
    texto << (dito ? "" : std::string(onde) + ": ") << erro.Descricao() << "\n";
    DizerConselho(texto, erro);
    auto descricao = ParaQt(texto.str()).replace(u"\n  "_s, u"\n"_s);  // windows indent nothing
    descricao.chop(1);
    return {erro.Numero(), descricao.toStdString()};
}

}  // namespace tarvo::host
