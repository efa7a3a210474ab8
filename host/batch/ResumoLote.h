#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <mutex>
#include <string>

#include "system/files/Descritor.h"

namespace tarvo::host {

// One produced file of a batch, or the reason why there is none.
struct LinhaResumo {
    std::string IE;
    std::int32_t NroDRQ = 0;
    std::string referencia;
    std::string relatorio;     // code; "todos" for the one file of a declaration
    std::string arquivo;       // relative to the batch's folder; empty when there is none
    std::uintmax_t bytes = 0;  // of that file
    std::size_t paginas = 0;
    std::size_t cortados = 0;  // texts that did not fit
    int erro = 0;              // 0: produced
    std::string descricao;     // of the error
};

// The summary of a batch (resumo.csv: semicolons, UTF-8 with a byte-order mark), which is also its
// journal: a line is written as soon as its file is complete, so that a stopped batch knows what it
// need not do again. Several threads may write. Errors: those of Arquivos.h.
class ResumoLote {
  public:
    // Opens the folder's summary, or begins one. continuar: error 58 otherwise when there is one.
    ResumoLote(const std::filesystem::path& pasta, bool continuar);

    void Acrescentar(const LinhaResumo& linha);

  private:
    std::filesystem::path arquivo_;
    Descritor saida_;
    std::mutex mutex_;
};

// Of the lines of the folder's summary, if it has one, keeps those for which manter is true; a line
// that a kill cut short goes. Error 5 when the file is no summary.
void FiltrarResumo(const std::filesystem::path& pasta,
                   const std::function<bool(const LinhaResumo& linha)>& manter);

}  // namespace tarvo::host
