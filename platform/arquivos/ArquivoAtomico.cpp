#include "platform/arquivos/ArquivoAtomico.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>

#include "data/CodigosDeErros.h"
#include "platform/arquivos/Descritor.h"

namespace tarvo {

namespace {

constexpr std::size_t TamanhoDoBuffer = 1 << 16;

// Files of this process at the same time get different names; O_EXCL settles the rest.
std::string NomeProvisorio(const std::filesystem::path& destino) {
    static std::atomic<unsigned> contador = 0;
    return destino.string() + "." + std::to_string(::getpid()) + "-" + std::to_string(contador++) +
           ".tmp";
}

}  // namespace

void LancarErroDeArquivo(const std::filesystem::path& arquivo, int codigo) {
    const std::string nome = "\"" + arquivo.string() + "\"";
    switch (codigo) {
        case EACCES:
        case EPERM:
        case EROFS:
            throw Erro(NumeroErro::PermissaoNegada, "Sem permissão para acessar " + nome + ".");
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            throw Erro(NumeroErro::DiscoCheio, "Não há espaço para gravar " + nome + ".");
        case ENOENT:
        case ENOTDIR:
            throw Erro(NumeroErro::CaminhoNaoEncontrado, "A pasta de " + nome + " não existe.");
        default:
            throw Erro(NumeroErro::ErroDispositivo, "O acesso a " + nome + " falhou.");
    }
}

ArquivoAtomico::ArquivoAtomico(std::filesystem::path destino)
    : destino_(std::move(destino)), provisorio_(NomeProvisorio(destino_)) {
    descritor_ = ::open(provisorio_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descritor_ < 0) {
        Lancar();
    }
    pendente_.reserve(TamanhoDoBuffer);
}

ArquivoAtomico::~ArquivoAtomico() {
    if (descritor_ >= 0) {
        ::close(descritor_);
        ::unlink(provisorio_.c_str());
    }
}

void ArquivoAtomico::Escrever(std::string_view bytes) {
    pendente_.append(bytes);
    if (pendente_.size() >= TamanhoDoBuffer) {
        Descarregar();
    }
}

void ArquivoAtomico::Concluir() {
    Descarregar();
    struct stat antigo {};
    if (::stat(destino_.c_str(), &antigo) == 0 && S_ISREG(antigo.st_mode)) {
        // Where the owner differs this fails, and the new file keeps the user's own permissions.
        (void)::fchmod(descritor_, antigo.st_mode & 07777);
    }
    if (::fsync(descritor_) != 0 || ::rename(provisorio_.c_str(), destino_.c_str()) != 0) {
        Lancar();
    }
    ::close(descritor_);
    descritor_ = -1;
}

void ArquivoAtomico::Descarregar() {
    std::string_view resto = pendente_;
    while (!resto.empty()) {
        const ssize_t escritos = ::write(descritor_, resto.data(), resto.size());
        if (escritos < 0 && errno != EINTR) {
            Lancar();
        }
        resto.remove_prefix(escritos < 0 ? 0 : static_cast<std::size_t>(escritos));
    }
    pendente_.clear();
}

void ArquivoAtomico::Lancar() const {
    LancarErroDeArquivo(destino_, errno);
}

std::string LerArquivo(const std::filesystem::path& arquivo) {
    const Descritor entrada(::open(arquivo.c_str(), O_RDONLY | O_CLOEXEC));
    if (entrada.Valor() < 0) {
        if (errno == ENOENT || errno == ENOTDIR) {
            return {};
        }
        LancarErroDeArquivo(arquivo, errno);
    }
    std::string texto;
    std::array<char, 4096> bloco{};
    for (;;) {
        const ssize_t lidos = ::read(entrada.Valor(), bloco.data(), bloco.size());
        if (lidos < 0) {
            LancarErroDeArquivo(arquivo, errno);
        }
        if (lidos == 0) {
            return texto;
        }
        texto.append(bloco.data(), static_cast<std::size_t>(lidos));
    }
}

void GravarArquivo(const std::filesystem::path& destino, std::string_view bytes) {
    ArquivoAtomico arquivo(destino);
    arquivo.Escrever(bytes);
    arquivo.Concluir();
}

}  // namespace tarvo
