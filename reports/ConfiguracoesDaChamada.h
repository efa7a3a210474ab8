// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "data/Publico.h"
#include "reports/ReferenciaAtual.h"

namespace tarvo {

// The user's settings, with a reference month ("07/2003") in place of the stored one where it is
// given. Text that is no month is error 13 when a report reads it.
class TARVO_PUBLICO ConfiguracoesDaChamada final : public Configuracoes {
  public:
    // doUsuario outlives this object.
    explicit ConfiguracoesDaChamada(const Configuracoes& doUsuario,
                                    std::optional<std::string> refAtual = {})
        : doUsuario_(&doUsuario), refAtual_(std::move(refAtual)) {}

    [[nodiscard]] std::string Ler(std::string_view aplicacao, std::string_view secao,
                                  std::string_view chave, std::string_view padrao) const override {
        const bool substituida = refAtual_ && chave == AjusteRefAtual::Chave;
        return substituida ? *refAtual_ : doUsuario_->Ler(aplicacao, secao, chave, padrao);
    }

  private:
    const Configuracoes* doUsuario_;
    std::optional<std::string> refAtual_;
};

}  // namespace tarvo
