// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

#include "data/CodigosDeErros.h"

// What programs hold of this library in the C interface: numbers, never pointers, so that a number
// that is wrong, of another kind or already released is an error.
namespace tarvo::c {

class Recurso {
  public:
    Recurso() = default;
    virtual ~Recurso() = default;
    Recurso(const Recurso&) = delete;
    Recurso& operator=(const Recurso&) = delete;

    // Error when it cannot be released now.
    virtual void ConferirLiberacao() const {}
};

// All resources of the process by their numbers, each given out once. Safe to use from any thread;
// a resource itself is used by one call at a time.
class Registro {
  public:
    // Never destroyed: threads may still call when the process ends.
    static Registro& DoProcesso();

    std::uint64_t Acrescentar(std::unique_ptr<Recurso> recurso);
    // Errors: those of Usar, and the resource's own.
    void Liberar(std::uint64_t id);

    // A resource for the length of a call.
    template <class R>
    class Uso {
      public:
        // Errors: 91 when there is no such resource (any more), 20006 while another call uses it,
        // 13 when it is of another kind.
        Uso(Registro& registro, std::uint64_t id) : registro_(registro), id_(id) {
            recurso_ = dynamic_cast<R*>(&registro.Ocupar(id));
            if (recurso_ == nullptr) {
                registro.Desocupar(id);
                throw Erro(NumeroErro::TipoIncompativel,
                           "O identificador " + std::to_string(id) +
                               " é de outra espécie de objeto do que a operação pede.");
            }
        }
        ~Uso() { registro_.Desocupar(id_); }
        Uso(const Uso&) = delete;
        Uso& operator=(const Uso&) = delete;
        R& operator*() const { return *recurso_; }
        R* operator->() const { return recurso_; }

      private:
        Registro& registro_;
        std::uint64_t id_;
        R* recurso_;
    };

  private:
    struct Entrada {
        std::unique_ptr<Recurso> recurso;
        bool ocupada = false;
    };

    Entrada& Procurar(std::uint64_t id);
    Recurso& Ocupar(std::uint64_t id);
    void Desocupar(std::uint64_t id);

    std::mutex mutex_;
    std::unordered_map<std::uint64_t, Entrada> entradas_;
    std::uint64_t proximo_ = 1;
};

template <class R>
Registro::Uso<R> Usar(std::uint64_t id) {
    return {Registro::DoProcesso(), id};
}

}  // namespace tarvo::c
