// SPDX-License-Identifier: MIT
#include "system/loading/BibliotecaSobDemanda.h"

#include <dlfcn.h>

#include <string>

#include "data/CodigosDeErros.h"

namespace tarvo {

void* BibliotecaSobDemanda::Funcao(const char* nome) const {
    void* biblioteca = aberta_;
    if (biblioteca == nullptr) {
        // Two threads may both come here: the loader gives them the same library.
        biblioteca = dlopen(arquivo_, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
        aberta_ = biblioteca;
    }
    void* const funcao = biblioteca == nullptr ? nullptr : dlsym(biblioteca, nome);
    if (funcao == nullptr) {
        const char* const motivo = dlerror();
        throw Erro(NumeroErro::AcaoNaoSuportada,
                   std::string("Para ") + para_ + ", instale o pacote " + pacote_ + " (" +
                       (motivo == nullptr ? arquivo_ : motivo) + ").");
    }
    return funcao;
}

}  // namespace tarvo
