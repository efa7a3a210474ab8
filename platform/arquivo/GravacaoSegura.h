#pragma once

#include <filesystem>
#include <string_view>

namespace tarvo {

// Writes a file so that its old content stays whole until the new one is on the disk: under a
// temporary name in the same folder, renamed by Confirmar. Without Confirmar the destructor leaves
// nothing behind. The file's permissions stay, a link stays a link. What is no regular file (a
// device, a pipe) is written directly.
//
// Errors: 76 a folder that does not exist, 70 no permission, 61 no space, 57 any other failure.
// Belongs to one thread.
class GravacaoSegura {
  public:
    explicit GravacaoSegura(std::filesystem::path arquivo);
    ~GravacaoSegura();
    GravacaoSegura(const GravacaoSegura&) = delete;
    GravacaoSegura& operator=(const GravacaoSegura&) = delete;

    void Escrever(std::string_view bytes);
    void Confirmar();

  private:
    void AbrirTemporario();
    void Fechar();

    std::filesystem::path arquivo_;
    std::filesystem::path temporario_;  // empty when written directly
    int descritor_ = -1;
};

}  // namespace tarvo
