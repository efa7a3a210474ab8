// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
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

// Raises the error for a failed system call on a file, by errno's value: 76 no such folder, 75
// something else bears the name, 70 no permission, 67 too many open files, 61 no space, 7 no
// memory, 57 anything else.
[[noreturn]] void LancarErroDeArquivo(const std::filesystem::path& arquivo, int codigo);

// An open file, or folder, for a Descritor; como: flags of open. It is closed in other programs.
[[nodiscard]] int AbrirDescritor(const std::filesystem::path& arquivo, int como);

// Before a library that does not tell why it cannot read: error 67 unless so many more files may be
// open at once.
void ExigirDescritores(const std::filesystem::path& para, std::size_t quantos);

// Before a file is opened to be read, when there is one: error 75 unless it is a regular one. A
// pipe would keep its reader waiting, a device might never end.
void ExigirArquivoComum(const std::filesystem::path& arquivo);

// Empty when there is no such file.
std::string LerArquivo(const std::filesystem::path& arquivo);

// All of it to an open file; errno's value of what failed, 0 for nothing.
[[nodiscard]] int EscreverTudo(int descritor, std::string_view bytes);

// Replaces the file as a whole (see GravacaoSegura).
void GravarArquivo(const std::filesystem::path& arquivo, std::string_view bytes);

// Whether a file of that name may be written: error 75 when a folder, anything else that is no
// regular file, or a database bears it, an open one or any other, by whatever name. A link may be
// replaced.
void ConferirSubstituicao(const std::filesystem::path& arquivo);

// Gives a whole file its name on the same file system. What bears the name is replaced, a link
// itself and never what it points to (see ConferirSubstituicao); from a regular file of the same
// owner the permission bits are kept, and no others.
void Renomear(const std::filesystem::path& pronto, const std::filesystem::path& arquivo);

// Returns once everything that was written to the file system of that folder is on the disk.
void EsperarPeloDisco(const std::filesystem::path& pasta);

// With the folders on the way to it, where they are missing.
void CriarPasta(const std::filesystem::path& pasta);

}  // namespace tarvo
