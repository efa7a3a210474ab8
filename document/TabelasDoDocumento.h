// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/Data.h"
#include "data/Moeda.h"
#include "data/Publico.h"
#include "document/Conteudo.h"

// What a document shows as tables: the walk through its structure that spreadsheets and the
// clipboard are made from, and that any other writer can be built on.
namespace tarvo {

struct TARVO_PUBLICO TabelaDoDocumento {
    struct TARVO_PUBLICO Celula {
        std::string texto;  // as the page has it, whole where the page cuts it
        Natureza natureza = Natureza::Texto;

        // The amount, and the day, that a cell of that nature says in the form in which reports
        // print them ("1.234,56", "31/07/2003"); empty for any other text.
        [[nodiscard]] std::optional<Moeda> Quantia() const;
        [[nodiscard]] std::optional<Data> Dia() const;
        // The number as which spreadsheets hold it: an amount of no more than the 15 digits that
        // they keep, a day from 1/3/1900 on, from where all of them count alike.
        [[nodiscard]] std::optional<double> Numero() const;
    };
    struct Linha {
        FuncaoDaLinha funcao = FuncaoDaLinha::Dados;  // never Titulos
        std::vector<Celula> celulas;                  // one for each column
    };

    std::string nome;  // its heading or the document's short title; others may have it too
    // One for each column, those of several heading rows joined ("Base de cálculo – Contribuinte");
    // all empty where the page has no headings.
    std::vector<std::string> titulos;
    std::vector<Linha> linhas;
    // What of Conteudo::estrutura the table shows, each with all below it: its element and those
    // of the headings above it, or those of its labels and values.
    std::vector<std::uint32_t> elementos;

    [[nodiscard]] bool TemTitulos() const;
};

// The tables of a document, in the reader's order:
//  - each table of the page is one, whatever pages it goes over; a text that covers several places
//    of the grid stands in the first of them, and of a box with a label and a value the value in
//    the last one of its row;
//  - what stands between them (labels with their values, remarks, headings) is a table of the
//    columns "Campo" and "Valor": a heading is the title of a group, a remark a value without a
//    label;
//  - headings directly above a table are titles of a group at its beginning.
// Pictures and decoration are left out. Texts are UTF-8, without blanks around them, with
// placeholders replaced as on the page; a line break is "\n", a tab a blank, and any other control
// character U+FFFD.
// Error 5 when SOURCE_DATE_EPOCH is no number of seconds.
TARVO_PUBLICO std::vector<TabelaDoDocumento> TabelasDoDocumento(const Conteudo& conteudo);

}  // namespace tarvo
