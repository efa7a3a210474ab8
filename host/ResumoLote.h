#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <set>
#include <string>
#include <string_view>

namespace tarvo::host {

// One produced file of a batch, or the reason why there is none.
struct LinhaResumo {
    std::string IE;
    std::int32_t NroDRQ = 0;
    std::string referencia;
    std::string relatorio;  // code; "todos" for the one file of a declaration
    std::string arquivo;    // relative to the batch's folder
    std::size_t paginas = 0;
    std::size_t cortados = 0;  // texts that did not fit
    int erro = 0;              // 0: produced
    std::string descricao;     // of the error
};

// The summary of a batch (resumo.csv: semicolons, UTF-8 with a byte-order mark), which is also its
// journal: a line is written as soon as its file is complete, so that a stopped batch knows what it
// need not do again. Several threads may write.
class ResumoLote {
  public:
    // retomar: keeps the lines of produced files that still exist, and forgets the failures.
    // Otherwise error 58 when the folder already holds a summary.
    ResumoLote(const std::filesystem::path& pasta, bool retomar);

    void Acrescentar(const LinhaResumo& linha);
    // Whether an earlier run produced this file.
    [[nodiscard]] bool Produzido(const std::string& arquivo) const {
        return produzidos_.contains(arquivo);
    }

  private:
    std::filesystem::path arquivo_;
    std::set<std::string> produzidos_;
    std::mutex mutex_;
    std::ofstream saida_;
};

}  // namespace tarvo::host
