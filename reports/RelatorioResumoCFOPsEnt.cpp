// SPDX-License-Identifier: MIT
#include "reports/RelatorioResumoCFOPsEnt.h"

#include "reports/TipoResumo.h"

namespace tarvo {

namespace {

constexpr TipoResumo Entradas{
    .identidade = {.classe = "RelatorioResumoCFOPsEnt",
                   .titulo = "Relatório de Resumo dos CFOPs para as Operações / Prestações de "
                             "Entrada (Grupos 1, 2 e 3)",
                   .tituloResumido = "Resumo CFOPs Oper. Entrada",
                   .orientacao = 1},
    .formato =
        FormatoDeResumo("tblResumoCFOPsEntradas", "Resumo por CFOPs - Entradas (Grupos 1, 2 e 3)"),
    .faixasAntigas = FaixasCFOP::EntradasAntigas,
    .faixasNovas = FaixasCFOP::EntradasNovas,
    .grupos = "123",
    .tituloComImposto = "Operações com Crédito do Imposto",
    .tituloSemImposto = "Operações sem Crédito do Imposto",
    .tituloImposto = "Imposto Creditado",
};

}  // namespace

RelatorioResumoCFOPsEnt::RelatorioResumoCFOPsEnt(const Ambiente& ambiente)
    : RelatorioResumoCFOPs(Entradas, ambiente) {}

RelatorioResumoCFOPsEnt::~RelatorioResumoCFOPsEnt() = default;

}  // namespace tarvo
