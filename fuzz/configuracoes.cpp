// SPDX-License-Identifier: MIT
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "data/CodigosDeErros.h"
#include "system/files/Arquivos.h"
#include "system/settings/ConfiguracoesIni.h"

// Any bytes as the user's settings: they are read, a value that is set is the one read back, and no
// other line of the file is lost.
namespace tarvo::fuzz {

namespace {

void Exigir(bool verdade, const char* promessa) {
    if (!verdade) {
        std::fprintf(stderr, "%s\n", promessa);
        std::abort();
    }
}

// How many lines a text editor shows.
std::size_t Linhas(std::string_view texto) {
    std::size_t linhas = texto.empty() || texto.back() == '\n' ? 0 : 1;
    for (const char c : texto) {
        linhas += c == '\n' ? 1 : 0;
    }
    return linhas;
}

void Tentar(std::string_view bytes) {
    static const auto pasta =
        std::filesystem::temp_directory_path() / ("tarvo-fuzz-" + std::to_string(::getpid()));
    std::filesystem::create_directories(pasta);
    const auto arquivo = pasta / "Tarvo.ini";
    // Not as the program writes, which replaces nothing that begins like a database.
    std::ofstream(arquivo, std::ios::binary) << bytes;
    ConfiguracoesIni configuracoes(pasta);
    try {
        static_cast<void>(configuracoes.Ler("Tarvo", "pRef", "RefAtual", ""));
        configuracoes.Gravar("Tarvo", "pRef", "RefAtual", "07/2003");
    } catch (const Erro&) {
        Exigir(LerArquivo(arquivo) == bytes, "a refused change leaves the file as it was");
        return;
    }
    Exigir(configuracoes.Ler("Tarvo", "pRef", "RefAtual", "") == "07/2003",
           "what was set is what is read");
    Exigir(Linhas(LerArquivo(arquivo)) >= Linhas(bytes), "no line is lost");
}

}  // namespace

}  // namespace tarvo::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    tarvo::fuzz::Tentar({reinterpret_cast<const char*>(dados), tamanho});
    return 0;
}
