#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/batch/SelecaoLote.h"
#include "host/commands/Argumentos.h"

// What an earlier, stopped batch left in the folder.
namespace tarvo::host {

// The files that need not be made again. Small: eight bytes each.
class ArquivosProntos {
  public:
    void Acrescentar(std::int32_t NroDRQ, const std::string& codigo);
    // After the last Acrescentar.
    void Ordenar();
    [[nodiscard]] bool Contem(std::int32_t NroDRQ, const std::string& codigo) const;

  private:
    static std::uint64_t Chave(std::int32_t NroDRQ, const std::string& codigo);
    std::vector<std::uint64_t> chaves_;
};

// What of the batch is there, whole. Failures that will be tried again leave the folder's summary,
// what is outside the batch stays in it. Removes what a killed batch left half-made.
ArquivosProntos Retomar(const Argumentos& argumentos,
                        const std::vector<DeclaracaoDoLote>& declaracoes);

}  // namespace tarvo::host
