// SPDX-License-Identifier: MIT
#include "reports/RelatorioApuracaoOpProp.h"

#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"
#include "reports/LinhasApuracao.h"
#include "reports/TipoApuracao.h"

namespace tarvo {

namespace {

Moeda DeduzirRPA(LinhasApuracao& linhas) {
    linhas.Rotulo("014", "Deduções");
    linhas.Subitens("014");
    return linhas.Total("", "", "064", MoedaCampo(linhas.DaDeclaracao("DeduçõesRPA")));
}

// The two components count as printed, with two decimals.
Moeda DeduzirRES(LinhasApuracao& linhas) {
    linhas.Rotulo("014", "Deduções");
    const std::string fixado = FormatarValor(linhas.ExigirDaDeclaracao("ICMSFixPerRES"));
    linhas.Componente("      ICMS fixado para o período", fixado);
    linhas.Componente("      Outras", "");
    linhas.Subitens("014");
    const std::string outras = FormatarValor(MoedaCampo(linhas.DaDeclaracao("OutrasRES")));
    return linhas.Total("", " ", "064", Moeda::DeTexto(fixado) + Moeda::DeTexto(outras));
}

constexpr std::string_view Colunas[] = {"Imposto"};

constexpr RegimeApuracao Regimes[] = {
    {"01", "APURAÇÃO DOS SALDOS (RPA)", DeduzirRPA},
    {"02", "APURAÇÃO DOS SALDOS (RES)", DeduzirRES, true},
    {"03", "APURAÇÃO DOS SALDOS (DISPENSADO)", DeduzirRPA},
    {"", ""},
};

constexpr TipoApuracao OperacoesProprias{
    .identidade = {.classe = "RelatorioApuracaoOpProp",
                   .titulo = "Relatório de Apuração do ICMS sobre Operações Próprias",
                   .tituloResumido = "Apuração ICMS Oper. Próprias"},
    .formato =
        FormatoDeApuracao("tblApuraçãoOperaçõesPróprias", "Apuração do ICMS - Operações Próprias"),
    .colunasCFOP = Colunas,
    .gruposDebito = "567",
    .gruposCredito = "123",
    .opProprias = true,
    .saldoCredor = "SaldoCredAntDig",
    .regimes = Regimes,
};

}  // namespace

RelatorioApuracaoOpProp::RelatorioApuracaoOpProp(const Ambiente& ambiente)
    : RelatorioApuracao(OperacoesProprias, ambiente) {}

}  // namespace tarvo
