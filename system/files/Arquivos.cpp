// SPDX-License-Identifier: MIT
#include "system/files/Arquivos.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <deque>
#include <system_error>

#include "system/files/Descritor.h"
#include "system/files/GravacaoSegura.h"

namespace tarvo {

int AbrirDescritor(const std::filesystem::path& arquivo, int como) {
    const int aberto = ::open(arquivo.c_str(), como | O_CLOEXEC, 0666);
    if (aberto < 0) {
        LancarErroDeArquivo(arquivo, errno);
    }
    return aberto;
}

void ExigirDescritores(const std::filesystem::path& para, std::size_t quantos) {
    std::deque<Descritor> abertos;
    while (abertos.size() < quantos) {
        if (abertos.emplace_back(::open("/", O_PATH | O_CLOEXEC)).Valor() < 0) {
            LancarErroDeArquivo(para, errno);
        }
    }
}

void ExigirArquivoComum(const std::filesystem::path& arquivo) {
    std::error_code ignorado;
    const auto estado = std::filesystem::status(arquivo, ignorado);
    if (std::filesystem::exists(estado) && !std::filesystem::is_regular_file(estado)) {
        LancarErroDeArquivo(arquivo, std::filesystem::is_directory(estado) ? EISDIR : ENXIO);
    }
}

std::string LerArquivo(const std::filesystem::path& arquivo) {
    ExigirArquivoComum(arquivo);
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

int EscreverTudo(int descritor, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto escritos = ::write(descritor, bytes.data(), bytes.size());
        if (escritos >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(escritos));
        } else if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

void GravarArquivo(const std::filesystem::path& arquivo, std::string_view bytes) {
    GravacaoSegura gravacao(arquivo);
    gravacao.Escrever(bytes);
    gravacao.Confirmar();
}

void EsperarPeloDisco(const std::filesystem::path& pasta) {
    const Descritor aberta(AbrirDescritor(pasta, O_RDONLY | O_DIRECTORY));
    if (::syncfs(aberta.Valor()) != 0) {
        LancarErroDeArquivo(pasta, errno);
    }
}

void CriarPasta(const std::filesystem::path& pasta) {
    std::error_code erro;
    std::filesystem::create_directories(pasta, erro);
    if (!erro) {
        return;
    }
    std::error_code ignorado;
    const bool arquivo =
        std::filesystem::exists(pasta, ignorado) && !std::filesystem::is_directory(pasta, ignorado);
    LancarErroDeArquivo(pasta, arquivo ? EEXIST : erro.value());
}

}  // namespace tarvo
