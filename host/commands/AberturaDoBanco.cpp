// SPDX-License-Identifier: MIT
#include "host/commands/AberturaDoBanco.h"

namespace tarvo::host {

OrigemBanco LocalizarBanco(const Argumentos& a, Console& console, OpcoesAbertura opcoes) {
    opcoes.codificacao = a.codificacao.value_or(opcoes.codificacao);
    OrigemBanco origem(a.banco.string(), std::move(opcoes));
    if (a.codificacao && !origem.LidaEm()) {
        console.Avisar("--codificacao não muda nada neste banco, que não é um arquivo .mdb");
    }
    for (const std::string& aviso : origem.Avisos()) {
        console.Avisar(aviso);
    }
    return origem;
}

OrigemBanco AberturaInterrompivel::Localizar(OpcoesAbertura opcoes) {
    opcoes.acompanhante = &andamento_;
    return LocalizarBanco(argumentos_, console_, std::move(opcoes));
}

std::unique_ptr<BancoDados> AberturaInterrompivel::Acompanhada(const OrigemBanco& origem) {
    auto banco = origem.Abrir();
    banco->Acompanhar(&andamento_);
    return banco;
}

}  // namespace tarvo::host
