// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "data/Data.h"
#include "host/batch/Parte.h"
#include "host/commands/LinhaDeComando.h"
#include "output/FormatoDeSaida.h"

// The command line, read and checked.
namespace tarvo::host {

// Where a command writes its files, and as what.
struct SaidaEmArquivos {
    std::filesystem::path pasta;
    const FormatoDeSaida* formato = nullptr;
    OpcoesDeSaida opcoes;
};

struct Argumentos {
    Comando comando = Comando::Ajuda;
    std::string ajuda;                       // for Ajuda: the text to print
    std::filesystem::path banco;             // for Janela it may be empty
    std::optional<std::string> codificacao;  // of the oldest files' texts
    std::filesystem::path destino;           // of a copy
    bool exemplo = false;
    std::optional<std::string> IE;
    std::optional<std::int32_t> NumeroDRQ;  // from 1
    bool todos = false;                     // every report that the dialog would offer
    std::vector<std::string> codigos;       // otherwise these
    SaidaEmArquivos saida;
    bool naSaidaPadrao = false;           // the one report goes there instead
    std::int32_t opcoes = 0;              // entries that selecionar ticks, bit by bit
    std::string impressora;               // empty: the user's default printer
    std::optional<std::string> refAtual;  // "MM/AAAA"
    bool refDaDeclaracao = false;         // instead, each declaration's own month
    bool json = false;                    // the result as one JSON object a line
    bool silencioso = false;              // nothing but errors
    // Of a batch:
    std::optional<Data> de;  // in the first and last month of reference
    std::optional<Data> ate;
    Parte parte;                                // 1 of 1: all of it
    int trabalhos = 1;                          // threads
    bool unico = false;                         // one file per declaration with all its reports
    bool retomar = false;                       // go on where an earlier call stopped
    std::vector<std::filesystem::path> pastas;  // of batches
};

// Whether a report that was asked for is of a taxpayer, of a declaration.
bool PedeContribuinte(const Argumentos& argumentos);
bool PedeDeclaracao(const Argumentos& argumentos);

// The month that stands in for the user's setting while a declaration with that Ref1 is printed;
// none where the setting holds.
std::optional<std::string> MesDaChamada(const Argumentos& argumentos, Data ref1);

// Months in the order of time.
int OrdemDoMes(const Data& data);

// argumentos: without the program's name. Raises UsoErrado.
Argumentos LerArgumentos(const std::vector<std::string>& argumentos);

}  // namespace tarvo::host
