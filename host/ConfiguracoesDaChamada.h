#pragma once

#include <optional>
#include <string>
#include <utility>

#include "platform/configuracoes/ConfiguracoesIni.h"
#include "reports/ReferenciaAtual.h"

namespace tarvo::host {

// The user's settings, with --ref-atual in place of the stored month where it was given.
class ConfiguracoesDaChamada final : public Configuracoes {
  public:
    explicit ConfiguracoesDaChamada(std::optional<std::string> refAtual)
        : refAtual_(std::move(refAtual)) {}

    [[nodiscard]] std::string Ler(std::string_view aplicacao, std::string_view secao,
                                  std::string_view chave, std::string_view padrao) const override {
        const bool substituida = refAtual_ && chave == AjusteRefAtual::Chave;
        return substituida ? *refAtual_ : doUsuario_.Ler(aplicacao, secao, chave, padrao);
    }

  private:
    std::optional<std::string> refAtual_;
    ConfiguracoesIni doUsuario_;
};

}  // namespace tarvo::host
