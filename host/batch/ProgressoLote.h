#pragma once

#include <chrono>
#include <cstddef>
#include <mutex>
#include <set>
#include <string>

#include "data/CodigosDeErros.h"
#include "document/Ambiente.h"
#include "host/commands/Console.h"

namespace tarvo::host {

// Tells how far a batch is: one line with an estimate that is rewritten on a terminal, a line for
// each declaration elsewhere. Several threads may call.
class ProgressoLote {
  public:
    // console and configuracoes outlive this object. noTerminal: the standard output is one.
    ProgressoLote(Console& console, const Configuracoes& configuracoes, std::size_t declaracoes,
                  bool noTerminal);

    // One declaration is done. gravados counts the files made now, prontos those that an earlier
    // run had made.
    void Concluir(const std::string& declaracao, std::size_t gravados, std::size_t prontos);
    // A report failed: said at once, advice only the first time.
    void Falhar(const Erro& erro, const std::string& contexto);
    void Avisar(const std::string& aviso);
    // What came of it all, on a line of its own.
    void Terminar();

    [[nodiscard]] std::size_t Falhas() const { return falhas_; }

  private:
    void EscreverLinha();
    void ApagarLinha();

    Console& console_;
    std::ostream& saida_;
    const Configuracoes& configuracoes_;
    const std::size_t declaracoes_;
    const bool noTerminal_;
    const std::chrono::steady_clock::time_point inicio_ = std::chrono::steady_clock::now();
    std::mutex mutex_;
    std::size_t concluidas_ = 0;
    std::size_t feitas_ = 0;  // of those concluded, with something made now
    std::size_t gravados_ = 0;
    std::size_t prontos_ = 0;
    std::size_t falhas_ = 0;
    std::set<NumeroErro> aconselhados_;
};

}  // namespace tarvo::host
