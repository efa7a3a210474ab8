// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>
#include <string>

#include "data/BancoDados.h"
#include "document/Ambiente.h"

class QWidget;

namespace tarvo {
class ConfiguracoesIni;
}

namespace tarvo::host {

// Asks for a month "MM/AAAA" until one is given; nothing when the user gives up.
std::optional<std::string> PerguntarMes(QWidget* pai, const QString& pergunta,
                                        const QString& proposta);

// The declaration's own month, "07/2003"; empty when there is no such declaration.
std::string MesDaDeclaracao(BancoDados& banco, std::int32_t NumeroDRQ);

// The settings that the reports read; the current reference month is asked for, and kept, when a
// report wants it and there is none. Error 18 when the user gives up.
class ConfiguracoesComPergunta final : public Configuracoes {
  public:
    // Both outlive the object.
    ConfiguracoesComPergunta(const Configuracoes& daChamada, ConfiguracoesIni& doUsuario)
        : daChamada_(daChamada), doUsuario_(doUsuario) {}

    // What the question proposes from now on.
    void Propor(std::string mes) { proposta_ = std::move(mes); }

    [[nodiscard]] std::string Ler(std::string_view aplicacao, std::string_view secao,
                                  std::string_view chave, std::string_view padrao) const override;

  private:
    const Configuracoes& daChamada_;
    ConfiguracoesIni& doUsuario_;
    std::string proposta_;
};

}  // namespace tarvo::host
