// SPDX-License-Identifier: MIT
#include <cstdint>

#include "databases/mdb/Quadros.h"

// Any bytes as what the reader of the desktop engine's files sends: values are taken from them
// until one is none, and nothing else happens.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    using namespace tarvo::mdb;
    Conteudo conteudo({reinterpret_cast<const char*>(dados), tamanho});
    try {
        for (;;) {
            (void)conteudo.TomarValor();
        }
    } catch (const ErroDeProtocolo&) {
        return 0;
    }
}
