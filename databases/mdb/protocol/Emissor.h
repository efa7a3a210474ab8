// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <type_traits>

#include "databases/mdb/protocol/Protocolo.h"

namespace tarvo::mdb {

// Frames on standard output, a block at a time.
class Emissor {
  public:
    // Begins a frame; what is written until Fechar is its content.
    void Abrir(Quadro quadro);
    void Fechar();
    // Writes out what is left. Ends the process when nobody reads any more.
    void Descarregar();

    template <class T>
    requires std::is_trivially_copyable_v<T>
    void Escrever(T valor) { bloco_.append(reinterpret_cast<const char*>(&valor), sizeof valor); }
    void EscreverTexto(std::string_view texto);

  private:
    std::string bloco_;
    std::size_t inicio_ = 0;  // of the open frame's length
};

}  // namespace tarvo::mdb
