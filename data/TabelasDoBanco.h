// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "data/Publico.h"

// The tables of a declaration database as reports and hosts expect them.
namespace tarvo {

enum class TipoDaColuna : char {
    Texto = 'T',
    Codigo = 'C',  // a text that is compared without regard to case
    Longo = 'L',
    Moeda = 'M',
    Data = 'D',
    Booleano = 'B'
};

struct ColunaDoBanco {
    std::string_view nome;
    TipoDaColuna tipo;
    bool chave = false;  // of what tells the table's rows apart
    [[nodiscard]] bool EhTexto() const {
        return tipo == TipoDaColuna::Texto || tipo == TipoDaColuna::Codigo;
    }
};

// Whose a table's rows are, and by which column those of one are found: a taxpayer's by IE, a
// declaration's by NroDRQ, an entry's of tblOcorrências by Código; or everybody's.
enum class Dono { Contribuinte, Declaracao, Subitem, Todos };

struct TARVO_PUBLICO TabelaDoBanco {
    std::string_view nome;
    Dono dono = Dono::Todos;
    std::string_view definicao;  // "name type, name type"; a column of the key has "*" behind it
    [[nodiscard]] std::vector<ColunaDoBanco> Colunas() const;
    // The column by which rows are found that are not by their key; may be empty.
    [[nodiscard]] std::string_view Indice() const;
};

// Tables that others refer to stand before those.
TARVO_PUBLICO std::span<const TabelaDoBanco> TabelasDoBanco();

// The four that reports empty and refill.
TARVO_PUBLICO std::span<const TabelaDoBanco> TabelasRefeitas();

}  // namespace tarvo
