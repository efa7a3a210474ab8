// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "system/files/PastaDeEspera.h"

namespace tarvo {

// Writes a file so that its old content stays whole until the new one is on the disk: into a file
// that has no name and gets its own from Confirmar, by way of a PastaDeEspera where the name is
// taken or the file system knows no files without one. Without Confirmar nothing is left behind,
// not even by a process that is killed, but for a PastaDeEspera. What bears the name is replaced as
// Renomear does it.
//
// Errors: 76 a folder that does not exist, 75 what must not be replaced, 70 no permission, 67 too
// many open files, 61 no space, 57 any other failure. Belongs to one thread.
class GravacaoSegura {
  public:
    // pastaDeEspera: where to make a PastaDeEspera, on the same file system; empty: beside the
    // file.
    explicit GravacaoSegura(std::filesystem::path arquivo,
                            std::filesystem::path pastaDeEspera = {});
    ~GravacaoSegura();
    GravacaoSegura(const GravacaoSegura&) = delete;
    GravacaoSegura& operator=(const GravacaoSegura&) = delete;

    void Escrever(std::string_view bytes);
    // Returns once the content is on the disk.
    void Confirmar();
    // As Confirmar, but a power failure soon after may leave the file short or lose it. For writers
    // of many files that can tell afterwards which are whole.
    void ConfirmarSemEsperar();

  private:
    void Abrir();
    // A name in the PastaDeEspera, which is made now.
    [[nodiscard]] std::filesystem::path NomeDeEspera();
    // Gives the file without a name its own and returns true, or one to wait under.
    bool Nomear();
    void Fechar();

    std::filesystem::path arquivo_;
    std::filesystem::path pastaDeEspera_;
    std::unique_ptr<PastaDeEspera> espera_;
    std::filesystem::path temporario_;  // empty while the file has no name
    int descritor_ = -1;
};

}  // namespace tarvo
