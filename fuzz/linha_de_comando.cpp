// SPDX-License-Identifier: MIT
// Reads random words, one a line, as the command line: each is understood or refused with a
// message that a terminal can show, whatever the library behind it thinks of them.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "host/commands/Argumentos.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t tamanho) {
    using namespace tarvo::host;
    std::string_view resto(reinterpret_cast<const char*>(bytes), tamanho);
    std::vector<std::string> palavras;
    while (!resto.empty()) {
        const auto palavra = resto.substr(0, resto.find('\n'));
        // A word ends at its first zero byte.
        palavras.emplace_back(palavra.substr(0, palavra.find('\0')));
        resto.remove_prefix(std::min(resto.size(), palavra.size() + 1));
    }
    try {
        const Argumentos a = LerArgumentos(palavras);
        const bool informa = a.comando == Comando::Ajuda || a.comando == Comando::Versao ||
                             a.comando == Comando::RefAtual;
        const bool diz_em_que_trabalha = !a.banco.empty() || !a.pastas.empty();
        if (informa == diz_em_que_trabalha || std::ranges::count(a.pastas, "") > 0 ||
            (a.NumeroDRQ && *a.NumeroDRQ < 1) || (a.IE && a.IE->empty())) {
            std::abort();
        }
    } catch (const UsoErrado& uso) {
        if (std::string_view(uso.what()).empty()) {
            std::abort();
        }
    }
    return 0;
}
