// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace tarvo {

template <auto Liberar>
struct LiberadorDeC;

template <class T, class R, R (*Liberar)(T*)>
struct LiberadorDeC<Liberar> {
    using Tipo = T;
    void operator()(T* objeto) const noexcept { Liberar(objeto); }
};

// An object that a library in C gives and takes back by a function of its own, released at the end
// of its scope: ObjetoDeC<hb_face_destroy> holds an hb_face_t.
template <auto Liberar>
using ObjetoDeC = std::unique_ptr<typename LiberadorDeC<Liberar>::Tipo, LiberadorDeC<Liberar>>;

}  // namespace tarvo
