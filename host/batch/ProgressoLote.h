// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <string_view>

#include "data/CodigosDeErros.h"
#include "document/Ambiente.h"
#include "host/commands/Console.h"

namespace tarvo::host {

// What came of one declaration.
struct ContagemDaDeclaracao {
    std::size_t gravados = 0;  // files made now
    std::size_t prontos = 0;   // made by an earlier run
    // Why files of an earlier run were made again: "os dados mudaram".
    std::set<std::string_view> diferencas = {};
};

// Tells how far a batch is: one line with an estimate that is rewritten on a terminal, a line for
// each declaration elsewhere. Several threads may call.
class ProgressoLote {
  public:
    // console and configuracoes outlive this object. resumo: the summary's name; noTerminal: the
    // standard output is one.
    ProgressoLote(Console& console, const Configuracoes& configuracoes, std::string resumo,
                  std::size_t declaracoes, bool noTerminal);

    // One declaration is done.
    void Concluir(const std::string& declaracao, const ContagemDaDeclaracao& contagem);
    // A report failed: said at once, advice only the first time.
    void Falhar(const Erro& erro, const std::string& contexto);
    void Avisar(const std::string& aviso);
    // A line of data, on the standard output.
    void EscreverDados(const std::string& linha);
    // What came of it all, on a line of its own.
    void Terminar();

    [[nodiscard]] std::size_t Falhas() const { return falhas_; }

  private:
    void EscreverLinha();
    void ApagarLinha();

    Console& console_;
    std::ostream& saida_;
    const Configuracoes& configuracoes_;
    const std::string resumo_;
    const std::size_t declaracoes_;
    const bool noTerminal_;
    const std::chrono::steady_clock::time_point inicio_ = std::chrono::steady_clock::now();
    std::mutex mutex_;
    std::size_t concluidas_ = 0;
    std::size_t feitas_ = 0;  // of those concluded, with something made now
    std::size_t gravados_ = 0;
    std::size_t prontos_ = 0;
    std::size_t falhas_ = 0;
    std::map<std::string_view, std::set<std::string>> refeitas_;  // declarations, by why
    std::set<NumeroErro> aconselhados_;
};

}  // namespace tarvo::host
