// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <random>
#include <string>
#include <vector>

#include "data/Moeda.h"

// A random declaration, number 1 of taxpayer '1', with some of the defects that databases have. Of
// each row the tests know what a page must show. A row's amount is a power of four cents, so that a
// sum tells how often each row is in it.
namespace tarvo::apoio {

using Codigo = std::optional<std::string>;

struct DetalheSorteado {
    Codigo CFOP;
    std::string coluna;  // the one that holds the amount
    Moeda valor;
};

struct OperacaoSorteada {
    Codigo CFOP;
    Codigo UF;
    std::string coluna;
    Moeda valor;
};

struct NotaSorteada {
    Codigo CFOP;
    Codigo municipio;
    Codigo data;  // as printed
    Moeda valor;
};

struct EntradaMIDAX {
    Codigo codigo;
    Codigo municipio;
    Moeda valor;
};

struct SubitemSorteado {
    std::string codigo;
    int numero = 0;
    std::optional<bool> opProprias;
    Moeda valor;
};

struct LinhaDeDetalhe {
    std::string tabela;
    int numero = 0;  // of the entry
    std::string NF;
    bool temPeriodo = true;
    Moeda valor;
};

struct PagamentoSorteado {
    std::optional<bool> opProprias;
    Codigo data;  // as printed
    std::optional<Moeda> valor;
};

struct BancoSorteado {
    explicit BancoSorteado(unsigned semente);

    std::string sql;     // fills the tables of an emptied database
    bool novos = false;  // the CFOP summaries use the four-digit table
    int ano = 0;         // of the declaration
    std::string regime;
    std::string rotulo35;  // of state 35, as printed
    std::string nomeT2;    // of town t2
    std::vector<DetalheSorteado> detalhes;
    std::vector<OperacaoSorteada> operacoes;
    std::vector<NotaSorteada> notas;
    std::vector<EntradaMIDAX> midax;
    std::vector<SubitemSorteado> subitens;
    std::vector<LinhaDeDetalhe> linhas;
    std::vector<std::string> registros;
    std::vector<PagamentoSorteado> pagamentos;
};

// Of a row: 4 to the i-th, in cents.
Moeda PotenciaDeQuatro(int i);

// Tables without the keys that keep some defects out.
extern const char* const TabelasSemChaves;
// Empties every table that a random declaration fills.
extern const char* const EsvaziarTabelas;

}  // namespace tarvo::apoio
