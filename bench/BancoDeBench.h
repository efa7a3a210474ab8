// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>

#include "databases/sqlite/BancoSQLite.h"

namespace tarvo {

// A declaration database in a temporary file, filled by a script of SQLite's dialect.
class BancoDeBench {
  public:
    explicit BancoDeBench(const std::string& script) {
        std::filesystem::remove(arquivo_);
        CriarBanco(arquivo_);
        BancoSQLite::Abrir(arquivo_)->ExecutarScript(script);
    }
    ~BancoDeBench() {
        std::error_code ignorado;
        std::filesystem::remove(arquivo_, ignorado);
    }
    BancoDeBench(const BancoDeBench&) = delete;
    BancoDeBench& operator=(const BancoDeBench&) = delete;
    std::unique_ptr<BancoSQLite> Abrir(TabelasDeTrabalho onde) {
        return BancoSQLite::Abrir(arquivo_, {.tabelasDeTrabalho = onde});
    }

  private:
    std::filesystem::path arquivo_ = std::filesystem::temp_directory_path() /
                                     ("bench_tarvo-" + std::to_string(getpid()) + ".tarvo");
};

}  // namespace tarvo
