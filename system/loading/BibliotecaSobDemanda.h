// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>

namespace tarvo {

// A C library that is loaded when the first of its functions is called and then kept: a run that
// calls none starts without it, and needs no such library at all. For all threads.
class BibliotecaSobDemanda {
  public:
    // The file as the loader finds it, the Debian package that brings it, and what cannot be done
    // without it ("imprimir").
    constexpr BibliotecaSobDemanda(const char* arquivo, const char* pacote, const char* para)
        : arquivo_(arquivo), pacote_(pacote), para_(para) {}

    // Never null. Error 445, naming the package, when the library or the function is not there.
    void* Funcao(const char* nome) const;

  private:
    const char* arquivo_;
    const char* pacote_;
    const char* para_;
    mutable std::atomic<void*> aberta_ = nullptr;
};

template <const BibliotecaSobDemanda& De, class Tipo>
class FuncaoSobDemanda;

// One of its functions, called like the function itself; the first call may throw as above.
template <const BibliotecaSobDemanda& De, class R, class... A>
class FuncaoSobDemanda<De, R(A...)> {
  public:
    constexpr explicit FuncaoSobDemanda(const char* nome) : nome_(nome) {}

    R operator()(A... argumentos) const {
        auto* funcao = funcao_.load(std::memory_order_acquire);
        if (funcao == nullptr) {
            funcao = reinterpret_cast<R (*)(A...)>(De.Funcao(nome_));
            funcao_.store(funcao, std::memory_order_release);
        }
        return funcao(argumentos...);
    }

  private:
    const char* nome_;
    mutable std::atomic<R (*)(A...)> funcao_ = nullptr;
};

// Such a function where one that releases an object is wanted (see ObjetoDeC).
template <const auto& Funcao, class T>
void Liberar(T* objeto) {
    Funcao(objeto);
}

}  // namespace tarvo
