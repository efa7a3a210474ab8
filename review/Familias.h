// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "data/BancoDados.h"
#include "document/Ambiente.h"
#include "review/Achados.h"

// What the reports of each family leave out, split, repeat or show under another code of one
// declaration.
namespace tarvo::revisao {

// The declaration, as far as the reports' choices depend on it.
struct Declaracao {
    bool existe = false;
    Data ref1;                // 30/12/1899 when Null, as the reports read it
    std::string regime;       // code as stored
    bool cfopsNovos = false;  // whether the CFOP summaries take the four-digit table

    [[nodiscard]] bool Desde2002() const { return ref1.Ano() >= 2002; }
};

struct Contexto {
    BancoDados& banco;
    std::int32_t NroDRQ;
    const Declaracao& declaracao;
    const std::function<bool(std::string_view codigo)>& pedido;  // whether that report is asked for
    bool todos;  // all reports are, as far as the declaration's year offers them
    Achados& achados;
};

// The taxpayer's rows.
void RevisarContribuinte(BancoDados& banco, const std::string& IE, Achados& achados);
// The page header and what else is printed of the declaration's own row. configuracoes: as the CFOP
// summaries read them; null for the table of the declaration's own month.
Declaracao RevisarIdentificacao(BancoDados& banco, const std::string& IE, std::int32_t NroDRQ,
                                const Configuracoes* configuracoes,
                                const std::function<bool(std::string_view)>& pedido,
                                Achados& achados);

void RevisarCFOPs(const Contexto& contexto);           // 02, 03, 10, 14
void RevisarInterestaduais(const Contexto& contexto);  // 04, 05
void RevisarNotas(const Contexto& contexto);           // 06
void RevisarMIDAXB(const Contexto& contexto);          // 07, 08, 09
void RevisarSubitens(const Contexto& contexto);        // 10 to 15
void RevisarExportacoes(const Contexto& contexto);     // 16
void RevisarPagamentos(const Contexto& contexto);      // 17

}  // namespace tarvo::revisao
