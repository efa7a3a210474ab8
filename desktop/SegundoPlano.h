// SPDX-License-Identifier: MIT
#pragma once

#include <QFutureWatcher>
#include <QPromise>
#include <QThreadPool>
#include <memory>
#include <type_traits>
#include <utility>
#include <variant>

#include "desktop/Ligacao.h"

namespace tarvo {

// Runs trabalho on a thread of fila and hands its result, or its error, to depois on this thread;
// depois is not called any more once dono is gone.
template <class Trabalho, class Depois>
void EmSegundoPlano(QObject* dono, QThreadPool& fila, Trabalho trabalho, Depois depois) {
    using Resultado = std::variant<std::invoke_result_t<Trabalho>, Erro>;
    auto promessa = std::make_shared<QPromise<Resultado>>();
    auto* vigia = new QFutureWatcher<Resultado>(dono);
    Ligar(vigia, &QFutureWatcherBase::finished, dono, [vigia, depois = std::move(depois)] {
        vigia->deleteLater();
        depois(vigia->result());
    });
    vigia->setFuture(promessa->future());
    promessa->start();
    fila.start([promessa, trabalho = std::move(trabalho)] {
        try {
            promessa->addResult(Resultado(trabalho()));
        } catch (...) {
            promessa->addResult(Resultado(ErroCorrente()));
        }
        promessa->finish();
    });
}

template <class Trabalho, class Depois>
void EmSegundoPlano(QObject* dono, Trabalho trabalho, Depois depois) {
    EmSegundoPlano(dono, *QThreadPool::globalInstance(), std::move(trabalho), std::move(depois));
}

}  // namespace tarvo
