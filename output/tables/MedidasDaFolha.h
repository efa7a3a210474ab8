// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

#include "document/TabelasDoDocumento.h"

namespace tarvo {

// How wide the columns of a sheet are and how high its rows, from what the cells say.
class MedidasDaFolha {
  public:
    using Linha = TabelaDoDocumento::Linha;

    explicit MedidasDaFolha(const TabelaDoDocumento& tabela);

    // In characters of the spreadsheet's own font.
    [[nodiscard]] double Largura(std::size_t coluna) const;
    // Whether a text goes on in further lines of its cell; the title of a group that stands alone
    // runs over the empty cells beside it instead.
    [[nodiscard]] bool Quebra(const Linha& linha, std::size_t coluna) const;
    // Points; 0 for what the spreadsheet takes by itself.
    [[nodiscard]] double Altura(const Linha& linha) const;
    [[nodiscard]] double AlturaDosTitulos(const TabelaDoDocumento& tabela) const;

  private:
    [[nodiscard]] std::size_t Linhas(std::string_view texto, std::size_t coluna) const;

    std::vector<std::size_t> caracteres_;  // that each column holds in a line
};

}  // namespace tarvo
