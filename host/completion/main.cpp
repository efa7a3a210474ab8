// SPDX-License-Identifier: MIT
// Writes the bash completion of relatorios-tarvo to standard output.
#include <iostream>
#include <map>

#include "dispatch/Catalogo.h"
#include "host/commands/AnalisadorDeComando.h"
#include "output/FormatoDeSaida.h"

namespace {

using namespace tarvo::host;

bool Posicional(const Opcao& opcao) {
    return std::string_view(opcao.nome).substr(0, 2) != "--";
}

// What bash offers for a value, by what stands for it in the help.
std::string Valores(const Opcao& opcao) {
    const std::string_view valor = opcao.valor;
    if (valor == "PASTA") {
        return "compopt -o dirnames";
    }
    if (valor == "FMT") {
        std::string formatos;
        for (const auto& formato : tarvo::FormatosDeSaida()) {
            formatos.append(formato.nome).append(" ");
        }
        return "sugerir '" + formatos + "'";
    }
    if (valor == "LISTA") {
        std::string codigos = "todos";
        for (const auto& entrada : tarvo::Catalogo()) {
            codigos.append(" ").append(entrada.codigo);
        }
        return "sugerir '" + codigos + " VELO'";
    }
    return "return";
}

}  // namespace

int main() {
    std::string comandos;
    std::string opcoesPorComando;
    std::map<std::string, std::string> valores;
    for (const auto& comando : DefinicoesDosComandos()) {
        comandos.append(comando.nome).append(" ");
        std::string palavras = "--ajuda --silencioso";
        for (const auto& opcao : comando.opcoes) {
            if (!Posicional(opcao)) {
                palavras.append(" ").append(opcao.nome);
                valores.emplace(opcao.nome, Valores(opcao));
            }
        }
        for (const auto& chave : comando.chaves) {
            palavras.append(" ").append(chave.nome);
        }
        opcoesPorComando.append("        ").append(comando.nome);
        opcoesPorComando.append(") opcoes='").append(palavras).append("' ;;\n");
    }
    std::string valoresPorOpcao;
    for (const auto& [opcao, sugestao] : valores) {
        valoresPorOpcao.append("        ").append(opcao).append(") ").append(sugestao);
        valoresPorOpcao += sugestao == "return" ? " ;;\n" : "; return ;;\n";
    }
    std::cout << R"(# bash completion of relatorios-tarvo
_relatorios_tarvo() {
    local palavra=${COMP_WORDS[COMP_CWORD]} opcoes=
    sugerir() { mapfile -t COMPREPLY < <(compgen -W "$1" -- "$palavra"); }
    compopt -o default
    if [ "$COMP_CWORD" -eq 1 ]; then
        sugerir ')"
              << comandos << R"(--ajuda --versao'
        return
    fi
    case ${COMP_WORDS[COMP_CWORD - 1]} in
)" << valoresPorOpcao
              << R"(    esac
    case ${COMP_WORDS[1]} in
)" << opcoesPorComando
              << R"(    esac
    case $palavra in -*) sugerir "$opcoes" ;; esac
}
complete -F _relatorios_tarvo relatorios-tarvo
)";
}
