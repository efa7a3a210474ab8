// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <vector>

#include "data/Valor.h"
#include "databases/mdb/ProcessoLeitor.h"
#include "databases/mdb/protocol/Protocolo.h"

namespace tarvo::mdb {

// The reader sent what it never should, or ended too early: the file brought it to that.
class ErroDeProtocolo {};

// The content of a frame, taken from its beginning. Whoever wrote it may have meant harm: nothing
// beyond its end is read, no value is taken for another. Raises ErroDeProtocolo.
class Conteudo {
  public:
    explicit Conteudo(std::string_view bytes) : bytes_(bytes) {}

    template <class T>
    requires std::is_trivially_copyable_v<T> T Tomar() {
        T valor{};
        Exigir(sizeof valor);
        bytes_.copy(reinterpret_cast<char*>(&valor), sizeof valor);
        bytes_.remove_prefix(sizeof valor);
        return valor;
    }
    Valor TomarValor();
    // Error when something is left.
    void Terminar() const;

  private:
    void Exigir(std::size_t quantos) const;
    std::string_view TomarTexto();

    std::string_view bytes_;
};

// The frames that a process writes.
class Quadros {
  public:
    // limite: how many bytes there may be in all.
    Quadros(ProcessoLeitor& leitor, std::uint64_t limite) : leitor_(leitor), limite_(limite) {}

    struct Lido {
        Quadro quadro;
        Conteudo conteudo;  // valid until the next frame is taken
    };
    Lido Proximo();
    // After the last frame: nothing may follow.
    void Terminar();

  private:
    void Juntar(std::size_t bytes);

    ProcessoLeitor& leitor_;
    std::uint64_t limite_;
    std::vector<char> bloco_;
    std::size_t inicio_ = 0;
    std::size_t fim_ = 0;
};

}  // namespace tarvo::mdb
