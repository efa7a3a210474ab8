// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "databases/Copia.h"
#include "databases/postgresql/Esquema.h"
#include "databases/postgresql/Sessao.h"

namespace tarvo {

// Copies into a server's tables, by COPY in one transaction. For the errors see CopiarBanco.
class DestinoServidor final : public DestinoDaCopia {
  public:
    // The tables are there and empty, or are made.
    enum class Tabelas { Vazias, Novas };
    DestinoServidor(const std::string& endereco, Tabelas tabelas, Acompanhante* quem = nullptr);

    void Tabela(const TabelaDoBanco& tabela, std::span<const ColunaDoBanco> colunas) override;
    void Linha(sqlite3_stmt* linha) override;
    void TerminarTabela() override;
    // Without it nothing is there afterwards.
    void Confirmar();

    [[nodiscard]] const std::vector<std::string>& Avisos() const { return avisos_; }

  private:
    void CriarTabelas();
    void ExigirVazias();

    Acompanhante* quem_;
    postgresql::Sessao sessao_;
    std::optional<postgresql::Esquema> esquema_;
    std::vector<std::string> avisos_;
    const TabelaDoBanco* tabela_ = nullptr;
    std::vector<ColunaDoBanco> colunas_;
    std::size_t linhas_ = 0;  // of the table
    std::string bytes_;       // not sent yet
};

}  // namespace tarvo
