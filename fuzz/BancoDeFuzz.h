// SPDX-License-Identifier: MIT
#pragma once

#include <sqlite3.h>

#include <memory>

#include "databases/sqlite/BancoSQLite.h"

// A declaration database in memory with a few rows in every table; made once, because that takes
// longer than most of what is tried on it.
namespace tarvo::fuzz {

class BancoDeFuzz {
  public:
    BancoDeFuzz();
    ~BancoDeFuzz();
    BancoDeFuzz(const BancoDeFuzz&) = delete;
    BancoDeFuzz& operator=(const BancoDeFuzz&) = delete;

    [[nodiscard]] sqlite3* Conexao() const { return conexao_; }
    BancoDados& operator*() { return *banco_; }
    BancoDados* operator->() { return banco_.get(); }

  private:
    sqlite3* conexao_ = nullptr;
    std::unique_ptr<BancoSQLite> banco_;
};

BancoDeFuzz& Banco();

// What is done to the database while this object lives is undone with it, and a query that runs
// for very long (a product of all tables) is interrupted.
class Tentativa {
  public:
    Tentativa();
    ~Tentativa();
    Tentativa(const Tentativa&) = delete;
    Tentativa& operator=(const Tentativa&) = delete;

  private:
    sqlite3* conexao_ = Banco().Conexao();
    int passos_ = 0;
};

}  // namespace tarvo::fuzz
