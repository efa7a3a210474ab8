// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tarvo {

class ConfiguracoesIni;

// What windows remember of their user, in a section of the store. One that is null or cannot be
// read remembers nothing, and one that cannot be written stays as it is: losing a habit is no
// error.
std::string LerHabito(const ConfiguracoesIni* configuracoes, std::string_view secao,
                      std::string_view chave);
void GravarHabito(ConfiguracoesIni* configuracoes, std::string_view secao, std::string_view chave,
                  std::string_view valor);

}  // namespace tarvo
