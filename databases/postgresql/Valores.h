// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "data/Valor.h"

// Values as a server sends them in binary.
namespace tarvo::postgresql {

// The object identifiers of types that are the same in every server (pg_type.dat).
using Tipo = unsigned int;

// How a column of that type is asked for: its value is then of a type that LerValor knows. The
// server makes a text of what is neither text, number, date nor Boolean.
struct Pedida {
    std::string_view conversao;  // after the column's name in SELECT
    Tipo tipo;                   // of what comes
};
Pedida PedidaDe(Tipo tipo);
// Whether values of that type compare with a number.
bool EhNumero(Tipo tipo);

// A value that is not Null. What no Valor can hold (a number beyond Currency, the date infinity) is
// its text, so that it is the error of who reads it.
Valor LerValor(std::string_view bytes, Tipo tipo);

// Reads the binary form of COPY, piece by piece.
class LeitorDeCopia {
  public:
    explicit LeitorDeCopia(std::vector<Tipo> tipos) : tipos_(std::move(tipos)) {}

    // Takes a piece, which has whole rows. The values last until the next row.
    template <class Receber>
    void Ler(std::string_view pedaco, Receber receber) {
        PularCabecalho(pedaco);
        while (Linha(pedaco)) {
            receber(std::span<const Valor>(valores_));
        }
    }

  private:
    void PularCabecalho(std::string_view& pedaco);
    bool Linha(std::string_view& pedaco);

    std::vector<Tipo> tipos_;
    std::vector<Valor> valores_;
    bool comecou_ = false;
};

}  // namespace tarvo::postgresql
