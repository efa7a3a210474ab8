// SPDX-License-Identifier: MIT
#include "reports/RelatorioApuracaoSubTrib.h"

#include "data/LeitoresDeCampo.h"
#include "reports/LinhasApuracao.h"
#include "reports/TipoApuracao.h"

namespace tarvo {

namespace {

Moeda DeduzirST(LinhasApuracao& linhas) {
    linhas.Rotulo("014", "Deduções");
    linhas.Subitens("014");
    return linhas.Total("", "", "064", MoedaCampo(linhas.DaDeclaracao("DeduçõesST")));
}

constexpr std::string_view Colunas[] = {"ImpostoRetidoST", "ImpRetSubstitutoST"};

constexpr RegimeApuracao Regimes[] = {{"", "APURAÇÃO DOS SALDOS (ST)", DeduzirST}};

constexpr TipoApuracao SubstituicaoTributaria{
    .identidade = {.classe = "RelatorioApuracaoSubTrib",
                   .titulo = "Relatório de Apuração do ICMS por Substituição Tributária",
                   .tituloResumido = "Apuração ICMS Sub. Tribut."},
    .formato = FormatoDeApuracao("tblApuraçãoSubstituiçãoTributária",
                                 "Apuração do ICMS - Substituição Tributária"),
    .colunasCFOP = Colunas,
    .gruposDebito = "5",
    .gruposCredito = "1",
    .opProprias = false,
    .saldoCredor = "SaldoCredAntDigST",
    .regimes = Regimes,
};

}  // namespace

RelatorioApuracaoSubTrib::RelatorioApuracaoSubTrib(const Ambiente& ambiente)
    : RelatorioApuracao(SubstituicaoTributaria, ambiente) {}

}  // namespace tarvo
