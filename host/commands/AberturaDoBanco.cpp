// SPDX-License-Identifier: MIT
#include "host/commands/AberturaDoBanco.h"

namespace tarvo::host {

OrigemBanco LocalizarBanco(const Argumentos& a, Console& console, OpcoesAbertura opcoes) {
    opcoes.codificacao = a.codificacao;
    OrigemBanco origem(a.banco.string(), std::move(opcoes));
    for (const std::string& aviso : origem.Avisos()) {
        console.Avisar(aviso);
    }
    return origem;
}

}  // namespace tarvo::host
