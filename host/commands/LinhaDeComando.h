// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/commands/Mensagens.h"

// The grammar of the command line: which commands there are, which options each takes, and their
// help. What the options' values mean is read from them in Argumentos.
namespace tarvo::host {

enum class Comando {
    Ajuda,
    Versao,
    Criar,
    Copiar,
    Listar,
    Exportar,
    Lote,
    LoteResumo,
    Selecionar,
    Imprimir,
    Verificar,
    Velo,
    RefAtual,
    Janela
};

// The options' values as they were typed; empty or false when left out.
struct LinhaDeComando {
    Comando comando = Comando::Ajuda;
    std::string ajuda;  // for Ajuda: the text to print
    std::string banco;
    std::string codificacao;
    std::string IE;
    std::string drq;
    std::string relatorios;
    std::string formato;
    std::string saida;  // of copiar, the new file
    std::string dpi;
    std::string opcoes;
    std::string impressora;
    std::string refAtual;
    std::string de;
    std::string ate;
    std::string trabalhos;
    std::string parte;
    std::vector<std::string> pastas;
    bool exemplo = false;
    bool semEstrutura = false;
    bool unico = false;
    bool retomar = false;
    bool json = false;
    bool silencioso = false;
};

// argumentos: without the program's name. Raises UsoErrado.
LinhaDeComando AnalisarLinhaDeComando(const std::vector<std::string>& argumentos);

// The command that the line begins with ("exportar"); empty when it begins with none.
std::string_view NomeDoComando(const std::vector<std::string>& argumentos);

// The command, or the option without one, that was meant by a mistyped one; empty when none is
// near.
std::string_view ComandoParecido(std::string_view digitado);

}  // namespace tarvo::host
