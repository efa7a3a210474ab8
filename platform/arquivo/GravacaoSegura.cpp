#include "platform/arquivo/GravacaoSegura.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include "data/CodigosDeErros.h"

namespace tarvo {

namespace {

namespace fs = std::filesystem;

NumeroErro NumeroDe(int erro) {
    switch (erro) {
        case ENOENT:
        case ENOTDIR:
        case ENAMETOOLONG:
            return NumeroErro::CaminhoNaoEncontrado;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case ETXTBSY:
            return NumeroErro::PermissaoNegada;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return NumeroErro::DiscoCheio;
        default:
            return NumeroErro::ErroDispositivo;
    }
}

std::string MotivoDe(int erro) {
    switch (erro) {
        case EISDIR:
            return "já existe uma pasta com esse nome";
        case ENAMETOOLONG:
            return "o nome é longo demais";
        default:
            break;
    }
    switch (NumeroDe(erro)) {
        case NumeroErro::CaminhoNaoEncontrado:
            return "a pasta não existe";
        case NumeroErro::PermissaoNegada:
            return "sem permissão de escrita";
        case NumeroErro::DiscoCheio:
            return "não há espaço no disco";
        default:
            return std::generic_category().message(erro);
    }
}

[[noreturn]] void Lancar(const fs::path& arquivo, int erro) {
    throw Erro(NumeroDe(erro),
               "Não foi possível gravar \"" + arquivo.string() + "\": " + MotivoDe(erro) + ".");
}

fs::path PastaDe(const fs::path& arquivo) {
    return arquivo.has_parent_path() ? arquivo.parent_path() : fs::path(".");
}

}  // namespace

GravacaoSegura::GravacaoSegura(fs::path arquivo) : arquivo_(std::move(arquivo)) {
    std::error_code ignorado;
    const auto estado = fs::status(arquivo_, ignorado);
    if (fs::is_directory(estado)) {
        Lancar(arquivo_, EISDIR);
    }
    if (fs::exists(estado) && !fs::is_regular_file(estado)) {
        descritor_ = ::open(arquivo_.c_str(), O_WRONLY | O_CLOEXEC);
        if (descritor_ < 0) {
            Lancar(arquivo_, errno);
        }
        return;
    }
    // A link stays a link: what it points to is replaced.
    if (fs::is_symlink(fs::symlink_status(arquivo_, ignorado))) {
        arquivo_ = fs::weakly_canonical(arquivo_, ignorado);
    }
    AbrirTemporario();
}

void GravacaoSegura::AbrirTemporario() {
    for (unsigned tentativa = 0; descritor_ < 0; ++tentativa) {
        temporario_ = PastaDe(arquivo_) / (".tarvo-" + std::to_string(::getpid()) + "-" +
                                           std::to_string(tentativa) + ".tmp");
        descritor_ = ::open(temporario_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descritor_ < 0 && errno != EEXIST) {
            Lancar(arquivo_, errno);
        }
    }
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
            Lancar(arquivo_, errno);
        }
    }
}

void GravacaoSegura::Confirmar() {
    if (temporario_.empty()) {
        Fechar();
        return;
    }
    if (::fsync(descritor_) != 0 || ::close(std::exchange(descritor_, -1)) != 0 ||
        ::rename(temporario_.c_str(), arquivo_.c_str()) != 0) {
        Lancar(arquivo_, errno);
    }
    temporario_.clear();
    // The new name, too, is to survive a power failure.
    const int pasta = ::open(PastaDe(arquivo_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (pasta >= 0) {
        ::fsync(pasta);
        ::close(pasta);
    }
}

}  // namespace tarvo
