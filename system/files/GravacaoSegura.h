#pragma once

#include <filesystem>
#include <string_view>

namespace tarvo {

// Writes a file so that its old content stays whole until the new one is on the disk: into a file
// of the same folder that has no name, or a temporary one where the file system knows no other,
// and gets its own from Confirmar. Without Confirmar nothing is left behind, not even by a process
// that is killed unless it had to use a temporary name (".tarvo-PROCESS-N.tmp"). The file's
// permissions stay, a link stays a link. What is no regular file (a device, a pipe) is written
// directly.
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
    // Returns once the content is on the disk.
    void Confirmar();
    // As Confirmar, but a power failure soon after may leave the file short or lose it. For writers
    // of many files that can tell afterwards which are whole.
    void ConfirmarSemEsperar();

  private:
    template <class Passo>
    void ComNomeLivre(Passo&& passo);
    void AbrirTemporario();
    // Gives the file without a name its own and returns false, or a temporary one and returns true.
    bool Nomear();
    void Fechar();

    std::filesystem::path arquivo_;
    std::filesystem::path temporario_;  // empty when there is none
    bool direta_ = false;
    int descritor_ = -1;
};

}  // namespace tarvo
