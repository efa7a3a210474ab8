// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <concepts>
#include <utility>

#include "data/CodigosDeErros.h"
#include "desktop/Mensagens.h"

// The one way in which windows answer signals: no exception leaves a slot, because Qt cannot carry
// one through its event loop. Its error is told over the window instead.
namespace tarvo {

// Runs acao on behalf of onde, which may go meanwhile.
template <class Acao>
void Proteger(QObject* onde, Acao&& acao) {
    const QPointer<QObject> dono(onde);
    try {
        acao();
    } catch (...) {
        DizerErro(dono, ErroCorrente());
    }
}

// QObject::connect for a function that may throw; it takes as many of the signal's arguments as it
// wants and is not called any more once onde is gone.
template <class Sinal, class Acao>
void Ligar(const typename QtPrivate::FunctionPointer<Sinal>::Object* emissor, Sinal sinal,
           QObject* onde, Acao acao) {
    QObject::connect(
        emissor, sinal, onde, [
            onde, acao = std::move(acao)
        ]<class... A>(A && ... argumentos) mutable requires std::invocable<Acao&, A...> {
            Proteger(onde, [&] { acao(std::forward<A>(argumentos)...); });
        });
}

}  // namespace tarvo
