// SPDX-License-Identifier: MIT
#include "interface/ErroDaChamada.h"

#include <algorithm>
#include <array>
#include <new>
#include <string_view>

#include "data/Textos.h"

namespace tarvo::c {

namespace {

struct ErroGuardado {
    std::int32_t numero;
    std::array<char, 2048> texto;  // of a fixed size: there is room for it when memory is out
};

thread_local constinit ErroGuardado Ultimo{};

constexpr std::string_view Cortado = "…";

void Guardar(NumeroErro numero, std::string_view descricao) {
    Ultimo.numero = static_cast<std::int32_t>(numero);
    const auto inicio = InicioInteiro(descricao, Ultimo.texto.size() - Cortado.size() - 1);
    char* fim = std::copy(inicio.begin(), inicio.end(), Ultimo.texto.data());
    if (inicio.size() < descricao.size()) {
        fim = std::copy(Cortado.begin(), Cortado.end(), fim);
    }
    *fim = '\0';
}

}  // namespace

std::int32_t GuardarErro() noexcept {
    try {
        const Erro erro = ErroCorrente();
        Guardar(erro.Numero(), erro.Descricao());
    } catch (const std::bad_alloc&) {  // not even the error finds room
        Guardar(NumeroErro::MemoriaInsuficiente, "Memória insuficiente.");
    }
    return Ultimo.numero;
}

std::int32_t NumeroDoErro() noexcept {
    return Ultimo.numero;
}

const char* TextoDoErro() noexcept {
    return Ultimo.texto.data();
}

}  // namespace tarvo::c
