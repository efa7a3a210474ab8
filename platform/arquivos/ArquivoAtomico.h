#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tarvo {

// A file that appears whole or not at all: written under a temporary name in the same folder and
// renamed once it is complete and on the disk, so that a full disk or a kill leaves the old file
// as it was. Errors, all naming the file: 76 no such folder, 70 no permission, 61 no space, 57
// whatever else the file system refuses.
class ArquivoAtomico {
  public:
    explicit ArquivoAtomico(std::filesystem::path destino);
    // Without Concluir nothing is left.
    ~ArquivoAtomico();
    ArquivoAtomico(const ArquivoAtomico&) = delete;
    ArquivoAtomico& operator=(const ArquivoAtomico&) = delete;

    void Escrever(std::string_view bytes);
    // Replaces the file of that name, whose permissions it keeps.
    void Concluir();

  private:
    void Descarregar();
    [[noreturn]] void Lancar() const;  // the error that errno tells

    std::filesystem::path destino_;
    std::string provisorio_;
    std::string pendente_;  // bytes not yet handed to the system
    int descritor_ = -1;
};

// The whole file; empty when there is none.
std::string LerArquivo(const std::filesystem::path& arquivo);

void GravarArquivo(const std::filesystem::path& destino, std::string_view bytes);

// The error for a failed system call on a file, by errno's value.
[[noreturn]] void LancarErroDeArquivo(const std::filesystem::path& arquivo, int codigo);

}  // namespace tarvo
