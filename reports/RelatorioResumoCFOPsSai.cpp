// SPDX-License-Identifier: MIT
#include "reports/RelatorioResumoCFOPsSai.h"

#include "reports/TipoResumo.h"

namespace tarvo {

namespace {

constexpr TipoResumo Saidas{
    .identidade = {.classe = "RelatorioResumoCFOPsSai",
                   .titulo = "Relatório de Resumo dos CFOPs para as Operações / Prestações de "
                             "Saída (Grupos 5, 6 e 7)",
                   .tituloResumido = "Resumo CFOPs Oper. Saída",
                   .orientacao = 1},
    .formato =
        FormatoDeResumo("tblResumoCFOPsSaídas", "Resumo por CFOPs - Saídas (Grupos 5, 6 e 7)"),
    .faixasAntigas = FaixasCFOP::SaidasAntigas,
    .faixasNovas = FaixasCFOP::SaidasNovas,
    .grupos = "567",
    .tituloComImposto = "Operações com Débito do Imposto",
    .tituloSemImposto = "Operações sem Débito do Imposto",
    .tituloImposto = "Imposto Debitado",
};

}  // namespace

RelatorioResumoCFOPsSai::RelatorioResumoCFOPsSai(const Ambiente& ambiente)
    : RelatorioResumoCFOPs(Saidas, ambiente) {}

RelatorioResumoCFOPsSai::~RelatorioResumoCFOPsSai() = default;

}  // namespace tarvo
