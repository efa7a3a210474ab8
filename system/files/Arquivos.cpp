#include "system/files/Arquivos.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <system_error>

#include "data/CodigosDeErros.h"
#include "system/files/Descritor.h"
#include "system/files/GravacaoSegura.h"

namespace tarvo {

namespace {

NumeroErro NumeroDe(int codigo) {
    switch (codigo) {
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

std::string MotivoDe(int codigo) {
    switch (codigo) {
        case EISDIR:
            return "já existe uma pasta com esse nome";
        case ENAMETOOLONG:
            return "o nome é longo demais";
        default:
            break;
    }
    switch (NumeroDe(codigo)) {
        case NumeroErro::CaminhoNaoEncontrado:
            return "a pasta não existe";
        case NumeroErro::PermissaoNegada:
            return "sem permissão";
        case NumeroErro::DiscoCheio:
            return "não há espaço no disco";
        default:
            return std::generic_category().message(codigo);
    }
}

}  // namespace

void LancarErroDeArquivo(const std::filesystem::path& arquivo, int codigo) {
    throw Erro(NumeroDe(codigo), "\"" + arquivo.string() + "\": " + MotivoDe(codigo) + ".");
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

void GravarArquivo(const std::filesystem::path& arquivo, std::string_view bytes) {
    GravacaoSegura gravacao(arquivo);
    gravacao.Escrever(bytes);
    gravacao.Confirmar();
}

void EsperarPeloDisco(const std::filesystem::path& pasta) {
    const Descritor aberta(::open(pasta.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (aberta.Valor() < 0 || ::syncfs(aberta.Valor()) != 0) {
        LancarErroDeArquivo(pasta, errno);
    }
}

void CriarPasta(const std::filesystem::path& pasta) {
    std::error_code erro;
    std::filesystem::create_directories(pasta, erro);
    if (erro) {
        LancarErroDeArquivo(pasta, erro.value());
    }
}

}  // namespace tarvo
