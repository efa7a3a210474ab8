// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "review/Achado.h"

namespace tarvo::revisao {

// Findings as a review comes upon them, row by row: rows of one table with one reason are one
// finding, which counts them and names the first.
class Achados {
  public:
    // querido: whether a report's findings are asked for; those of no report always are.
    Achados(std::string IE, std::optional<std::int32_t> NroDRQ,
            std::function<bool(std::string_view relatorio)> querido = {});

    // One more row, or more of them that are alike. exemplo names it for the user (a code, an
    // invoice's number) and may be empty.
    void Linha(std::string_view relatorio, std::string_view tabela, std::string_view motivo,
               std::string_view exemplo = {}, std::size_t linhas = 1);
    // A whole sentence.
    void Frase(std::string_view relatorio, std::string motivo);

    [[nodiscard]] std::vector<Achado> Entregar() &&;

  private:
    struct Dobrado {
        Achado achado;
        std::vector<std::string> exemplos;
        std::size_t letras = 0;  // of the examples
    };
    [[nodiscard]] bool Querido(std::string_view relatorio) const;

    std::string IE_;
    std::optional<std::int32_t> NroDRQ_;
    std::function<bool(std::string_view)> querido_;
    std::vector<Dobrado> dobrados_;
};

}  // namespace tarvo::revisao
