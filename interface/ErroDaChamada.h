// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "data/CodigosDeErros.h"

// The border of the C interface: no exception crosses it, the calling thread keeps the error.
namespace tarvo::c {

// The thread's last error; zero and "" when there was none.
std::int32_t NumeroDoErro() noexcept;
const char* TextoDoErro() noexcept;

// Keeps the exception that is being handled and returns its number. A text longer than the room
// for it is cut at a character.
std::int32_t GuardarErro() noexcept;

// Runs a call; zero, or the number of the error that ended it.
template <class Acao>
std::int32_t Proteger(Acao&& acao) noexcept {
    try {
        acao();
        return 0;
    } catch (...) {
        return GuardarErro();
    }
}

}  // namespace tarvo::c
