#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/commands/Exportacao.h"
#include "host/commands/LinhaDeComando.h"

// The command line, read and checked.
namespace tarvo::host {

// A month of a year.
struct MesAno {
    int mes = 1;  // 1 to 12
    int ano = 100;
    // In the order of time.
    [[nodiscard]] int Ordem() const { return ano * 12 + mes; }
};

struct Argumentos {
    Comando comando = Comando::Ajuda;
    std::string ajuda;            // for Ajuda: the text to print
    std::filesystem::path banco;  // for Janela it may be empty
    bool exemplo = false;
    std::optional<std::string> IE;
    std::optional<std::int32_t> NumeroDRQ;
    bool todos = false;                // every report that the dialog would offer
    std::vector<std::string> codigos;  // otherwise these
    SaidaEmArquivos saida;
    std::int32_t opcoes = 0;              // entries that selecionar ticks, bit by bit
    std::string impressora;               // empty: the user's default printer
    std::optional<std::string> refAtual;  // "MM/AAAA"
    // Of a batch:
    std::optional<MesAno> de;  // first and last month of reference
    std::optional<MesAno> ate;
    int trabalhos = 1;     // threads
    bool unico = false;    // one PDF per declaration, with an outline
    bool retomar = false;  // go on where an earlier call stopped
};

// argumentos: without the program's name. Raises UsoErrado.
Argumentos LerArgumentos(const std::vector<std::string>& argumentos);

}  // namespace tarvo::host
