// SPDX-License-Identifier: MIT
#include "host/commands/ContinuacaoComJanelas.h"

#include <unistd.h>

#include <filesystem>

#include "data/CodigosDeErros.h"

namespace tarvo::host {

void ContinuarComJanelas(const std::vector<std::string>& argumentos) {
    constexpr const char* Nome = "relatorios-tarvo-janela";
    std::error_code ignorado;
    const auto pasta = std::filesystem::read_symlink("/proc/self/exe", ignorado).parent_path();
    std::vector<char*> lista{const_cast<char*>(Nome)};
    for (const auto& argumento : argumentos) {
        lista.push_back(const_cast<char*>(argumento.c_str()));
    }
    lista.push_back(nullptr);
    for (const auto& lugar :
         {pasta / Nome, pasta.parent_path() / TARVO_LIBEXECDIR / "relatoriostarvo" / Nome}) {
        execv(lugar.c_str(), lista.data());
    }
    throw Erro(NumeroErro::AcaoNaoSuportada,
               "As janelas não fazem parte desta instalação (pacote relatorios-tarvo-desktop); "
               "exportar e imprimir funcionam.");
}

}  // namespace tarvo::host
