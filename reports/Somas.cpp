// SPDX-License-Identifier: MIT
#include "reports/Somas.h"

#include <string>

#include "data/Consultas.h"
#include "data/LeitoresDeCampo.h"

namespace tarvo {

namespace {

Moeda Somar(BancoDados& banco, std::string_view tabela, std::string_view coluna,
            const std::string& condicao, std::int32_t NumeroDRQ) {
    const std::string T(tabela);
    const std::string nome = "Soma De " + std::string(coluna);
    const auto soma = banco.OpenRecordset(
        "SELECT DISTINCTROW Sum(" + T + "." + std::string(coluna) + ") AS [" + nome + "] FROM " +
            T + " WHERE (" + condicao + ") GROUP BY " + T + ".NroDRQ HAVING (((" + T +
            ".NroDRQ)=" + std::to_string(NumeroDRQ) + "));",
        TipoRecordset::Dynaset);
    return soma->BOF() ? Moeda() : MoedaCampo(soma->Fields(nome));
}

}  // namespace

Moeda SomarCFOPs(BancoDados& banco, std::string_view coluna, std::string_view grupos,
                 std::int32_t NumeroDRQ) {
    std::string condicao;
    for (const char grupo : grupos) {
        condicao += condicao.empty() ? "" : " Or ";
        condicao += "(CFOP Like '" + std::string(1, grupo) + "*')";
    }
    return Somar(banco, "tblDetalhesCFOPs", coluna, condicao, NumeroDRQ);
}

Moeda SomarSubitens(BancoDados& banco, std::string_view item, bool opProprias,
                    std::int32_t NumeroDRQ) {
    const std::string condicao = "(CódSubItem Like " + TextoSql(std::string(item) + "*") +
                                 ") AND (OpPróprias=" + (opProprias ? "True" : "False") + ")";
    return Somar(banco, "tblOcorrências", "Valor", condicao, NumeroDRQ);
}

}  // namespace tarvo
