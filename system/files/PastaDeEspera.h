// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace tarvo {

// A folder of this process's own, where what is being written waits until it is whole. Its name is
// one that nothing bore before, so that nothing of anybody else's can stand in it; it goes at the
// end with what is left in it. One that a killed process left is removed only by Retomada: another
// run could know it by its name alone, which anybody may give. Errors: those of Arquivos.h.
class PastaDeEspera {
  public:
    // Makes one in that folder: ".tarvo-" and sixteen hexadecimal digits at random.
    static std::unique_ptr<PastaDeEspera> Nova(const std::filesystem::path& pasta);
    // Makes it again under a name that Nova gave earlier and that was kept, without what a killed
    // process left in it.
    static std::unique_ptr<PastaDeEspera> Retomada(std::filesystem::path caminho);
    static bool EhNomeDeEspera(std::string_view nome);

    ~PastaDeEspera();
    PastaDeEspera(const PastaDeEspera&) = delete;
    PastaDeEspera& operator=(const PastaDeEspera&) = delete;

    [[nodiscard]] const std::filesystem::path& Caminho() const { return caminho_; }

  private:
    explicit PastaDeEspera(std::filesystem::path caminho);

    std::filesystem::path caminho_;
};

}  // namespace tarvo
