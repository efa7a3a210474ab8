// SPDX-License-Identifier: MIT
#include "desktop/Habitos.h"

#include "data/CodigosDeErros.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo {

namespace {

constexpr std::string_view Aplicacao = "Tarvo";

}  // namespace

std::string LerHabito(const ConfiguracoesIni* configuracoes, std::string_view secao,
                      std::string_view chave) {
    try {
        return configuracoes != nullptr ? configuracoes->Ler(Aplicacao, secao, chave, "") : "";
    } catch (const Erro&) {
        return {};
    }
}

void GravarHabito(ConfiguracoesIni* configuracoes, std::string_view secao, std::string_view chave,
                  std::string_view valor) {
    try {
        if (configuracoes != nullptr && LerHabito(configuracoes, secao, chave) != valor) {
            configuracoes->Gravar(Aplicacao, secao, chave, valor);
        }
    } catch (const Erro&) {
        return;
    }
}

}  // namespace tarvo
