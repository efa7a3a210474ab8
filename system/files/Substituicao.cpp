// SPDX-License-Identifier: MIT
// What a new file may take the place of, and how.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>

#include "data/CodigosDeErros.h"
#include "system/files/Arquivos.h"
#include "system/files/Descritor.h"

namespace tarvo {

namespace {

namespace fs = std::filesystem;
using namespace std::string_view_literals;

// How files of databases begin, those included that a database in use has beside it.
constexpr std::array ComecosDeBancos = {
    "SQLite format 3\0"sv,
    "\x37\x7F\x06\x82"sv,  // write-ahead log, in either byte order
    "\x37\x7F\x06\x83"sv,
    "\x18\xE2\x2D\x00\x00\x00\x00\x00"sv,  // its index
    "\xD9\xD5\x05\xF9\x20\xA1\x63\xD7"sv,  // rollback journal
    "\x00\x01\x00\x00Standard Jet DB"sv,
    "\x00\x01\x00\x00Standard ACE DB"sv,
};

// A file that cannot be read is not the database that this process reads.
bool EhBanco(const fs::path& arquivo) {
    const Descritor entrada(
        ::open(arquivo.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    std::array<char, 32> comeco{};
    const ssize_t lidos =
        entrada.Valor() < 0 ? 0 : ::read(entrada.Valor(), comeco.data(), comeco.size());
    const std::string_view lido(comeco.data(), lidos < 0 ? 0 : static_cast<std::size_t>(lidos));
    return std::ranges::any_of(ComecosDeBancos,
                               [&](auto esperado) { return lido.starts_with(esperado); });
}

[[noreturn]] void Recusar(const fs::path& arquivo, const char* motivo) {
    throw Erro(NumeroErro::DestinoRecusado, "\"" + arquivo.string() + "\": " + motivo + ".");
}

// What bears the name and may be replaced; st_mode is 0 when nothing does.
struct stat Substituivel(const fs::path& arquivo) {
    struct stat atual {};
    if (::lstat(arquivo.c_str(), &atual) != 0) {
        if (errno == ENOENT) {
            return {};
        }
        LancarErroDeArquivo(arquivo, errno);
    }
    if (S_ISLNK(atual.st_mode)) {
        return atual;
    }
    if (!S_ISREG(atual.st_mode)) {
        Recusar(arquivo, S_ISDIR(atual.st_mode) ? "já existe uma pasta com esse nome"
                                                : "o que tem esse nome não é um arquivo comum");
    }
    if (EhBanco(arquivo)) {
        Recusar(arquivo, "é um banco de dados, que não será substituído");
    }
    return atual;
}

void HerdarPermissoes(const fs::path& pronto, const struct stat& antigo) {
    constexpr mode_t Permissoes = S_IRWXU | S_IRWXG | S_IRWXO;
    struct stat novo {};
    if (!S_ISREG(antigo.st_mode) || antigo.st_uid != ::geteuid() ||
        ::lstat(pronto.c_str(), &novo) != 0) {
        return;
    }
    mode_t modo = antigo.st_mode & Permissoes;
    if (novo.st_gid != antigo.st_gid &&
        ::lchown(pronto.c_str(), static_cast<uid_t>(-1), antigo.st_gid) != 0) {
        // Another group than the old file's gets no more than everybody.
        modo = (modo & ~mode_t{S_IRWXG}) | ((modo & S_IRWXO) << 3U);
    }
    // Where a file system knows no permissions the new ones are as good.
    (void)::chmod(pronto.c_str(), modo);
}

}  // namespace

void ConferirSubstituicao(const fs::path& arquivo) {
    (void)Substituivel(arquivo);
}

void Renomear(const fs::path& pronto, const fs::path& arquivo) {
    HerdarPermissoes(pronto, Substituivel(arquivo));
    if (std::rename(pronto.c_str(), arquivo.c_str()) != 0) {
        LancarErroDeArquivo(arquivo, errno);
    }
}

}  // namespace tarvo
