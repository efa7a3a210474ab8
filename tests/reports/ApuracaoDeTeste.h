// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "tests/reports/PaginaEsperada.h"

// Rows and lines for the tests of the assessments.
namespace tarvo::apoio {

// SQL for sub-items of the item, "item.01" to "item.quantos" (at most 99), of 1,00 each.
inline std::string Subitens(int NroDRQ, const std::string& item, int quantos, bool opProprias) {
    const std::string codigo = "'" + item + ".' || substr('0' || i, -2)";
    return Repetir(quantos,
                   "insert into tblOcorrências (NroDRQ, CódSubItem, Código, Valor, OpPróprias) "
                   "select " +
                       std::to_string(NroDRQ) + ", " + codigo + ", " + std::to_string(NroDRQ) +
                       item + " * 100 + i, 10000, " + (opProprias ? "-1" : "0") + " from n");
}

// A work table's rows as "Campo|Linha|CódigoSubitem|Total|Valor", Null as nothing.
inline Lista LinhasDe(BancoDeTeste& banco, const std::string& tabela) {
    auto linhas =
        banco.Linhas("select Campo, Linha, CódigoSubitem, Total, Valor from " + tabela, 5);
    for (auto& linha : linhas) {
        for (auto i = linha.find("(nulo)"); i != std::string::npos; i = linha.find("(nulo)")) {
            linha.erase(i, 6);
        }
    }
    return linhas;
}

// The numbered amounts among such rows: "051 1,00; 052 0,00; ".
inline std::string Totais(const Lista& linhas) {
    std::string totais;
    for (const auto& linha : linhas) {
        const auto valor = linha.rfind('|');
        if (valor + 1 != linha.size()) {
            totais += linha.substr(valor - 3, 3) + " " + linha.substr(valor + 1) + "; ";
        }
    }
    return totais;
}

}  // namespace tarvo::apoio
