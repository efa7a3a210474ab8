#pragma once

#include <functional>

#include "data/CodigosDeErros.h"

namespace tarvo {

// The number of the error that an action ends with; none when it ends without one.
inline NumeroErro NumeroDe(const std::function<void()>& acao) {
    try {
        acao();
    } catch (const Erro& erro) {
        return erro.Numero();
    }
    return NumeroErro{};
}

}  // namespace tarvo
