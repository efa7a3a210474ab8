#pragma once

#include <string>
#include <vector>

#include "tests/apoio/Apoio.h"

// Rows and lines for the tests of the assessments.
namespace tarvo::apoio {

// SQL for sub-items of the item, "item.01" to "item.quantos" (at most 99), of 1,00 each.
inline std::string Subitens(int NroDRQ, const std::string& item, int quantos, bool opProprias) {
    std::string sql;
    for (int i = 1; i <= quantos; ++i) {
        const std::string codigo = item + (i < 10 ? ".0" : ".") + std::to_string(i);
        const std::string entrada = std::to_string(NroDRQ) + item + codigo.substr(4);
        sql +=
            "insert into tblOcorrências (NroDRQ, CódSubItem, Código, Valor, OpPróprias) values (" +
            std::to_string(NroDRQ) + ", '" + codigo + "', " + entrada + ", 10000, " +
            (opProprias ? "-1" : "0") + ");\n";
    }
    return sql;
}

// A work table's rows as "Campo|Linha|CódigoSubitem|Total|Valor", Null as nothing.
inline std::vector<std::string> LinhasDe(BancoDeTeste& banco, const std::string& tabela) {
    auto linhas =
        banco.Linhas("select Campo, Linha, CódigoSubitem, Total, Valor from " + tabela, 5);
    for (auto& linha : linhas) {
        for (auto onde = linha.find("(nulo)"); onde != std::string::npos;
             onde = linha.find("(nulo)")) {
            linha.erase(onde, 6);
        }
    }
    return linhas;
}

// The amount of the line with that field number; "(ausente)" when there is no such line.
inline std::string ValorDe(const std::vector<std::string>& linhas, const std::string& total) {
    for (const auto& linha : linhas) {
        const auto onde = linha.find("|" + total + "|");
        if (onde != std::string::npos) {
            return linha.substr(onde + total.size() + 2);
        }
    }
    return "(ausente)";
}

}  // namespace tarvo::apoio
