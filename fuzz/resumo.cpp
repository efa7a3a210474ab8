// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstdlib>
#include <sstream>

#include "host/batch/LinhaResumo.h"

// The summary of a batch as an earlier run, a spreadsheet or a stranger left it: no byte is lost in
// reading its records, and what is read as a line is written as that line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t tamanho) {
    using namespace tarvo::host;
    const std::string texto(reinterpret_cast<const char*>(bytes), tamanho);
    std::istringstream entrada(texto);
    LeitorDeRegistros leitor(entrada);
    std::string lidos;
    for (std::string registro; leitor.Proximo(registro);) {
        if (leitor.Inicio() != lidos.size()) {
            std::abort();
        }
        lidos += registro;
        (void)SepararCelulas(registro);
        if (const auto linha = Lida(registro)) {
            const std::string escrita = Escrita(*linha);
            const auto relida = Lida(escrita);
            if (!relida || Escrita(*relida) != escrita || relida->NroDRQ != linha->NroDRQ) {
                std::abort();
            }
        }
    }
    if (lidos != texto) {
        std::abort();
    }
    return 0;
}
