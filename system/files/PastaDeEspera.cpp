// SPDX-License-Identifier: MIT
#include "system/files/PastaDeEspera.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <random>
#include <system_error>
#include <utility>

#include "system/files/Arquivos.h"

namespace tarvo {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view Prefixo = ".tarvo-";
constexpr std::string_view Digitos = "0123456789abcdef";
constexpr std::size_t QuantosDigitos = 16;

std::string NomeAleatorio() {
    std::random_device acaso;
    std::uniform_int_distribution<std::size_t> digito(0, Digitos.size() - 1);
    std::string nome(Prefixo);
    std::generate_n(std::back_inserter(nome), QuantosDigitos,
                    [&] { return Digitos[digito(acaso)]; });
    return nome;
}

// False when the name is taken.
bool Criar(const fs::path& caminho) {
    if (::mkdir(caminho.c_str(), S_IRWXU) == 0) {
        return true;
    }
    if (errno != EEXIST) {
        LancarErroDeArquivo(caminho.parent_path(), errno);
    }
    return false;
}

}  // namespace

std::unique_ptr<PastaDeEspera> PastaDeEspera::Nova(const fs::path& pasta) {
    for (;;) {
        fs::path caminho = pasta / NomeAleatorio();
        if (Criar(caminho)) {
            return std::unique_ptr<PastaDeEspera>(new PastaDeEspera(std::move(caminho)));
        }
    }
}

std::unique_ptr<PastaDeEspera> PastaDeEspera::Retomada(fs::path caminho) {
    std::error_code erro;
    fs::remove_all(caminho, erro);
    if (erro || !Criar(caminho)) {
        LancarErroDeArquivo(caminho, erro ? erro.value() : EEXIST);
    }
    return std::unique_ptr<PastaDeEspera>(new PastaDeEspera(std::move(caminho)));
}

bool PastaDeEspera::EhNomeDeEspera(std::string_view nome) {
    return nome.size() == Prefixo.size() + QuantosDigitos && nome.starts_with(Prefixo) &&
           nome.find_first_not_of(Digitos, Prefixo.size()) == std::string_view::npos;
}

PastaDeEspera::PastaDeEspera(fs::path caminho) : caminho_(std::move(caminho)) {}

PastaDeEspera::~PastaDeEspera() {
    std::error_code ignorado;
    fs::remove_all(caminho_, ignorado);
}

}  // namespace tarvo
