// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include "interface/Registro.h"

// What a program hands to a function of the C interface, checked before it is used.
namespace tarvo::c {

// Error 5 with the reason.
[[noreturn]] void Recusar(const std::string& motivo);

// Error 5 for a null pointer; nome: of the argument.
inline void ExigirPonteiro(bool presente, const char* nome) {
    if (!presente) {
        Recusar(std::string(nome) + " é nulo");
    }
}

// An output argument, zero until the call succeeds.
template <class T>
T& Saida(T* ponteiro, const char* nome) {
    ExigirPonteiro(ponteiro != nullptr, nome);
    *ponteiro = T{};
    return *ponteiro;
}

// Error 5 for a null pointer or a text that is not UTF-8.
std::string LerTexto(const char* texto, const char* nome);

// The name of a file, as the system knows it; error 5 when it is missing.
std::filesystem::path Caminho(const char* arquivo);

// A new resource of the process; its number.
template <class R, class... Argumentos>
std::uint64_t Registrar(Argumentos&&... argumentos) {
    return Registro::DoProcesso().Acrescentar(
        std::make_unique<R>(std::forward<Argumentos>(argumentos)...));
}

}  // namespace tarvo::c
