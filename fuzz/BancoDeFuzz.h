#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>

#include "platform/sqlite/BancoSQLite.h"

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
    // For statements that must not fail.
    void Executar(const std::string& sql);

  private:
    sqlite3* conexao_ = nullptr;
    std::unique_ptr<BancoSQLite> banco_;
};

// What is done to the database while this object lives is undone with it, and a query that runs
// for very long (a product of all tables) is interrupted.
class Tentativa {
  public:
    explicit Tentativa(BancoDeFuzz& banco);
    ~Tentativa();
    Tentativa(const Tentativa&) = delete;
    Tentativa& operator=(const Tentativa&) = delete;

  private:
    BancoDeFuzz& banco_;
    int passos_ = 0;
};

}  // namespace tarvo::fuzz
