#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

// Whole files, and the errors of the file system.
namespace tarvo {

struct ArquivoGravado {
    std::filesystem::path caminho;
    std::uintmax_t bytes = 0;
};

// Raises the error for a failed system call on a file, by errno's value: 76 no such folder, 70 no
// permission, 61 no space, 57 anything else.
[[noreturn]] void LancarErroDeArquivo(const std::filesystem::path& arquivo, int codigo);

// Empty when there is no such file.
std::string LerArquivo(const std::filesystem::path& arquivo);

// Replaces the file as a whole (see GravacaoSegura).
void GravarArquivo(const std::filesystem::path& arquivo, std::string_view bytes);

// Returns once everything that was written to the file system of that folder is on the disk.
void EsperarPeloDisco(const std::filesystem::path& pasta);

// With the folders on the way to it, where they are missing.
void CriarPasta(const std::filesystem::path& pasta);

}  // namespace tarvo
