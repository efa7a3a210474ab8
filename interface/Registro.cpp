// SPDX-License-Identifier: MIT
#include "interface/Registro.h"

namespace tarvo::c {

Registro& Registro::DoProcesso() {
    static auto& registro = *new Registro;  // NOLINT: see the declaration
    return registro;
}

std::uint64_t Registro::Acrescentar(std::unique_ptr<Recurso> recurso) {
    const std::scoped_lock trava(mutex_);
    const std::uint64_t id = proximo_++;
    entradas_[id].recurso = std::move(recurso);
    return id;
}

void Registro::Liberar(std::uint64_t id) {
    decltype(entradas_)::node_type liberada;  // destroyed outside the lock: windows may call back
    const auto uso = Usar<Recurso>(id);
    uso->ConferirLiberacao();
    const std::scoped_lock trava(mutex_);
    liberada = entradas_.extract(id);
}

Registro::Entrada& Registro::Procurar(std::uint64_t id) {
    const auto achada = entradas_.find(id);
    if (achada == entradas_.end()) {
        const bool existiu = id != 0 && id < proximo_;
        throw Erro(NumeroErro::ObjetoNaoDefinido,
                   "O identificador " + std::to_string(id) +
                       (existiu ? " já foi liberado." : " não é de nenhum objeto."));
    }
    return achada->second;
}

Recurso& Registro::Ocupar(std::uint64_t id) {
    const std::scoped_lock trava(mutex_);
    Entrada& entrada = Procurar(id);
    if (entrada.ocupada) {
        throw Erro(NumeroErro::EmUso, "O identificador " + std::to_string(id) +
                                          " está em uso por outra chamada que não terminou.");
    }
    entrada.ocupada = true;
    return *entrada.recurso;
}

void Registro::Desocupar(std::uint64_t id) {
    const std::scoped_lock trava(mutex_);
    if (const auto achada = entradas_.find(id); achada != entradas_.end()) {
        achada->second.ocupada = false;
    }
}

}  // namespace tarvo::c
