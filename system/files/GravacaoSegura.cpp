#include "system/files/GravacaoSegura.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

#include "system/files/Arquivos.h"

namespace tarvo {

namespace {

namespace fs = std::filesystem;

fs::path PastaDe(const fs::path& arquivo) {
    return arquivo.has_parent_path() ? arquivo.parent_path() : fs::path(".");
}

// The way to an open file that has no name.
std::string CaminhoDoDescritor(int descritor) {
    return "/proc/self/fd/" + std::to_string(descritor);
}

}  // namespace

GravacaoSegura::GravacaoSegura(fs::path arquivo) : arquivo_(std::move(arquivo)) {
    std::error_code ignorado;
    const auto estado = fs::status(arquivo_, ignorado);
    if (fs::is_directory(estado)) {
        LancarErroDeArquivo(arquivo_, EISDIR);
    }
    if (fs::exists(estado) && !fs::is_regular_file(estado)) {
        descritor_ = ::open(arquivo_.c_str(), O_WRONLY | O_CLOEXEC);
        if (descritor_ < 0) {
            LancarErroDeArquivo(arquivo_, errno);
        }
        direta_ = true;
        return;
    }
    // A link stays a link: what it points to is replaced.
    if (fs::is_symlink(fs::symlink_status(arquivo_, ignorado))) {
        arquivo_ = fs::weakly_canonical(arquivo_, ignorado);
    }
    AbrirTemporario();
}

// Runs the step with one temporary name after another until one is free.
template <class Passo>
void GravacaoSegura::ComNomeLivre(Passo&& passo) {
    for (unsigned tentativa = 0;; ++tentativa) {
        fs::path nome = PastaDe(arquivo_) / (".tarvo-" + std::to_string(::getpid()) + "-" +
                                             std::to_string(tentativa) + ".tmp");
        if (passo(nome)) {
            temporario_ = std::move(nome);
            return;
        }
        if (errno != EEXIST) {
            LancarErroDeArquivo(arquivo_, errno);
        }
    }
}

void GravacaoSegura::AbrirTemporario() {
    // Without a name nothing is left even of a killed process. Not every file system can do it.
    descritor_ = ::open(PastaDe(arquivo_).c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, 0666);
    if (descritor_ >= 0 && ::access(CaminhoDoDescritor(descritor_).c_str(), F_OK) == 0) {
        return;
    }
    Fechar();
    ComNomeLivre([this](const fs::path& nome) {
        descritor_ = ::open(nome.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        return descritor_ >= 0;
    });
}

GravacaoSegura::~GravacaoSegura() {
    Fechar();
    if (!temporario_.empty()) {
        ::unlink(temporario_.c_str());
    }
}

void GravacaoSegura::Fechar() {
    if (descritor_ >= 0) {
        ::close(std::exchange(descritor_, -1));
    }
}

void GravacaoSegura::Escrever(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto escritos = ::write(descritor_, bytes.data(), bytes.size());
        if (escritos >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(escritos));
        } else if (errno != EINTR) {
            LancarErroDeArquivo(arquivo_, errno);
        }
    }
}

void GravacaoSegura::Confirmar() {
    if (!direta_ && ::fsync(descritor_) != 0) {
        LancarErroDeArquivo(arquivo_, errno);
    }
    ConfirmarSemEsperar();
}

void GravacaoSegura::ConfirmarSemEsperar() {
    if (direta_) {
        Fechar();
        return;
    }
    struct stat antigo {};
    if (::stat(arquivo_.c_str(), &antigo) == 0) {
        // Fails where the file is another user's; the new one then has our own permissions.
        (void)::fchmod(descritor_, antigo.st_mode & 07777U);
    }
    if (temporario_.empty() && !Nomear()) {
        return;
    }
    if (::close(std::exchange(descritor_, -1)) != 0 ||
        ::rename(temporario_.c_str(), arquivo_.c_str()) != 0) {
        LancarErroDeArquivo(arquivo_, errno);
    }
    temporario_.clear();
}

bool GravacaoSegura::Nomear() {
    const std::string origem = CaminhoDoDescritor(descritor_);
    const auto ligar = [&](const fs::path& nome) {
        return ::linkat(AT_FDCWD, origem.c_str(), AT_FDCWD, nome.c_str(), AT_SYMLINK_FOLLOW) == 0;
    };
    if (ligar(arquivo_)) {
        Fechar();
        return false;
    }
    // A name that is taken is replaced by renaming.
    ComNomeLivre(ligar);
    return true;
}

}  // namespace tarvo
