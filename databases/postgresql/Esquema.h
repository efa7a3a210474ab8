// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/TabelasDoBanco.h"
#include "databases/postgresql/Sessao.h"
#include "databases/postgresql/Valores.h"

// The declaration tables that a server has, and how they are asked for.
namespace tarvo::postgresql {

struct ColunaDoServidor {
    std::string_view nome;
    Pedida pedida;
    bool numero = false;  // compares with numbers
};

struct TabelaDoServidor {
    const TabelaDoBanco* definicao = nullptr;
    std::vector<ColunaDoServidor> colunas;  // those of the definition, in its order

    [[nodiscard]] const ColunaDoServidor* Coluna(std::string_view nome) const;
    [[nodiscard]] std::vector<std::string> NomesDasColunas() const;
    // The definitions of its columns.
    [[nodiscard]] std::vector<ColunaDoBanco> Definicoes() const;
    // The types in which the columns' values come.
    [[nodiscard]] std::vector<Tipo> Tipos() const;
    // "SELECT columns FROM table WHERE condition ORDER BY ordem"; condicao may be empty.
    [[nodiscard]] std::string Selecao(const std::string& condicao) const;

    // Conditions, valor as the server is to read it; the second of each of several values. FALSE
    // where the table lacks the column.
    [[nodiscard]] std::string Da(std::string_view colunaDeNumero, const std::string& valor) const;
    [[nodiscard]] std::string DeIE(const std::string& valor) const;
};

class Esquema {
  public:
    // Reads what is in the search path of the connection. Errors: 3078 when no table of a
    // declaration database is, 3061 for tables without "ordem", 3112 for what the user may not
    // read; they name all of it, and the way out.
    explicit Esquema(Sessao& sessao);

    [[nodiscard]] const std::vector<TabelaDoServidor>& Tabelas() const { return tabelas_; }
    // nullptr: the server has none of that name.
    [[nodiscard]] const TabelaDoServidor* Procurar(std::string_view nome) const;
    // A query of one text that is another one when anything changes that all declarations share.
    [[nodiscard]] std::string ResumoDosComuns() const;

  private:
    std::vector<TabelaDoServidor> tabelas_;
};

// A text as it is compared without regard to case.
std::string SemCaixaNoServidor(const std::string& texto);

}  // namespace tarvo::postgresql
