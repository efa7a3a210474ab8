// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <span>
#include <string_view>
#include <vector>

// The tables of a declaration database as reports and hosts expect them.
namespace tarvo::revisao {

enum class TipoDeColuna : char {
    Texto = 'T',
    Longo = 'L',
    Moeda = 'M',
    Data = 'D',
    Booleano = 'B'
};

struct ColunaDoEsquema {
    std::string_view nome;
    TipoDeColuna tipo;
};

// What a row hangs on: a declaration by NroDRQ, an entry of tblOcorrências by Código.
enum class Referencia { Nenhuma, Declaracao, Subitem };

struct TabelaDoEsquema {
    std::string_view nome;
    std::string_view definicao;                  // "name type, name type"
    std::array<std::string_view, 2> chave = {};  // what tells rows apart, where something does
    Referencia referencia = Referencia::Nenhuma;
    bool trabalho = false;  // refilled by reports: only its form counts

    [[nodiscard]] std::vector<ColunaDoEsquema> Colunas() const;
};

// Tables that others refer to stand before those.
std::span<const TabelaDoEsquema> TabelasDoEsquema();

}  // namespace tarvo::revisao
