// SPDX-License-Identifier: MIT
#include "databases/mdb/protocol/Emissor.h"

#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>

namespace tarvo::mdb {

namespace {

constexpr std::size_t Bloco = 64UL * 1024;

}  // namespace

void Emissor::Abrir(Quadro quadro) {
    Escrever(quadro);
    inicio_ = bloco_.size();
    Escrever(std::uint32_t{0});
}

void Emissor::Fechar() {
    const auto tamanho =
        static_cast<std::uint32_t>(bloco_.size() - inicio_ - sizeof(std::uint32_t));
    std::memcpy(bloco_.data() + inicio_, &tamanho, sizeof tamanho);
    if (bloco_.size() >= Bloco) {
        Descarregar();
    }
}

void Emissor::Descarregar() {
    for (std::size_t escritos = 0; escritos < bloco_.size();) {
        const ssize_t agora =
            write(STDOUT_FILENO, bloco_.data() + escritos, bloco_.size() - escritos);
        if (agora < 0 && errno != EINTR) {
            _exit(1);
        }
        escritos += agora > 0 ? static_cast<std::size_t>(agora) : 0;
    }
    bloco_.clear();
}

void Emissor::EscreverTexto(std::string_view texto) {
    Escrever(static_cast<std::uint32_t>(texto.size()));
    bloco_ += texto;
}

}  // namespace tarvo::mdb
