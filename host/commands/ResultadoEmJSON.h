// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "dispatch/Declaracoes.h"
#include "host/batch/SituacaoDaParte.h"
#include "output/FormatoDeSaida.h"
#include "review/Achado.h"

// What a command found or produced, as the one-line JSON objects that --json writes: ASCII, with
// everything else escaped.
namespace tarvo::host {

// "relatorio", "ie", "drq", "arquivos" (each "caminho" and "bytes"), "paginas", "cortados" (each
// "pagina", "x" and "y" in cm, "texto"), "achados" (as below). ie and drq are null where the report
// has none.
std::string ResultadoEmJSON(std::string_view codigo, const std::optional<std::string>& IE,
                            const std::optional<std::int32_t>& NumeroDRQ,
                            const ResultadoDaSaida& resultado, const std::vector<Achado>& achados);

// "ie", "drq", "relatorio", "tabela", "linhas", "motivo"; null for what the finding does not name.
std::string ResultadoEmJSON(const Achado& achado);

// "ie", "razaoSocial", "cnpj", and those of the declaration: "drq", "referencia", "regime", "tipo",
// "consistente". What the database does not tell is null; either may be nullptr, not both.
std::string ResultadoEmJSON(const Contribuinte* contribuinte, const Declaracao* declaracao);

// "parte", "partes", "pasta" (null for one that did not begin), "concluida", "declaracoes",
// "terminadas", "porTerminar", "arquivos", "paginas", "bytes", "falhas" (each "drq", "ie",
// "relatorio", "erro", "descricao").
std::string ResultadoEmJSON(const SituacaoDaParte& situacao);

}  // namespace tarvo::host
