// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/commands/LinhaDeComando.h"

// Reads the words of a command line by the definition of its command.
namespace tarvo::host {

struct Opcao {
    const char* nome;   // "--ie"; without "--" a positional argument
    const char* valor;  // what stands for the value in the help
    std::string LinhaDeComando::*campo;
    std::string descricao;
    bool obrigatoria = false;
};

// A positional argument that is given once or more.
struct Lista {
    const char* nome;
    std::vector<std::string> LinhaDeComando::*campo;
    const char* descricao;
};

// An option without a value.
struct Chave {
    const char* nome;
    bool LinhaDeComando::*campo;
    const char* descricao;
};

// Every command also takes --silencioso and --ajuda.
struct DefinicaoDeComando {
    Comando comando;
    std::string_view nome;
    const char* descricao;
    std::vector<Opcao> opcoes;
    std::vector<Chave> chaves;
    const Lista* lista = nullptr;
};

// All of them, in the order of the help.
const std::vector<DefinicaoDeComando>& DefinicoesDosComandos();

// palavras: those after the command. Every option is given at most once and never empty. Raises
// UsoErrado, of what is unknown before what is missing.
LinhaDeComando AnalisarComando(const DefinicaoDeComando& definicao,
                               const std::vector<std::string>& palavras);

// The help of the program.
std::string AjudaGeral(const std::vector<DefinicaoDeComando>& definicoes);

}  // namespace tarvo::host
