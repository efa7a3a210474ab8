// SPDX-License-Identifier: MIT
#include "dispatch/Catalogo.h"

#include <array>

#include "reports/RelatorioApuracaoOpProp.h"
#include "reports/RelatorioApuracaoSubTrib.h"
#include "reports/RelatorioCadastro.h"
#include "reports/RelatorioDetSubitens.h"
#include "reports/RelatorioEntInterestad.h"
#include "reports/RelatorioMIDAXB.h"
#include "reports/RelatorioNotasSaiZFMALC.h"
#include "reports/RelatorioPagamentos.h"
#include "reports/RelatorioRegExportacao.h"
#include "reports/RelatorioResumoCFOPsEnt.h"
#include "reports/RelatorioResumoCFOPsSai.h"
#include "reports/RelatorioSaiInterestad.h"

namespace tarvo {

namespace {

template <class R>
std::unique_ptr<RelatorioDeclaracao> Criar(const Ambiente& ambiente) {
    return std::make_unique<R>(ambiente);
}

constexpr std::array<EntradaCatalogo, 18> Entradas{{
    {"01", "01 - Cadastro do Contribuinte", "RelatorioCadastro", Criar<RelatorioCadastro>},
    {"02", "02 - Resumo dos CFOPs para as Operações / Prestações de Entrada (Grupos 1, 2 e 3)",
     "RelatorioResumoCFOPsEnt", Criar<RelatorioResumoCFOPsEnt>},
    {"03", "03 - Resumo dos CFOPs para as Operações / Prestações de Saída (Grupos 5, 6 e 7)",
     "RelatorioResumoCFOPsSai", Criar<RelatorioResumoCFOPsSai>},
    {"04", "04 - Informação das Operações e Prestações de Entradas Interestaduais - ICMS",
     "RelatorioEntInterestad", Criar<RelatorioEntInterestad>},
    {"05", "05 - Informação das Operações e Prestações de Saídas Interestaduais - ICMS",
     "RelatorioSaiInterestad", Criar<RelatorioSaiInterestad>},
    {"06", "06 - Notas Fiscais de Saídas para ZFM/ALC", "RelatorioNotasSaiZFMALC",
     Criar<RelatorioNotasSaiZFMALC>},
    {"07", "07 - Informações Adicionais para MIDAX-B - Código 1", "RelatorioMIDAXBCodigo1",
     Criar<RelatorioMIDAXBCodigo1>},
    {"08", "08 - Informações Adicionais para MIDAX-B - Código 2", "RelatorioMIDAXBCodigo2",
     Criar<RelatorioMIDAXBCodigo2>},
    {"09", "09 - Informações Adicionais para MIDAX-B - Código 3", "RelatorioMIDAXBCodigo3",
     Criar<RelatorioMIDAXBCodigo3>},
    {"10", "10 - Apuração do ICMS sobre Operações Próprias", "RelatorioApuracaoOpProp",
     Criar<RelatorioApuracaoOpProp>},
    {"11", "11 - Recebimento de Crédito Acumulado (Subitens 007.04 a 007.07) - Operações Próprias",
     "RelatorioDetRecCredAcum", Criar<RelatorioDetRecCredAcum>},
    {"11A",
     "11A- Crédito Acumulado com Visto Eletrônico (Subitens 002.20, 002.21, 007.40 e 007.41)  - "
     "Operações Próprias",
     "RelatorioDetRecCredAcVE", Criar<RelatorioDetRecCredAcVE>},
    {"12",
     "12 - Centralização do Imposto (Subitens 002.18, 002.19, 007.29 e 007.30) - Operações "
     "Próprias",
     "RelatorioDetCentrRecImp", Criar<RelatorioDetCentrRecImp>},
    {"13",
     "13 - Ressarcimento do ICMS Retido por ST (Subitens 002.10 e 002.11) - Operações Próprias",
     "RelatorioDetResSubstitui", Criar<RelatorioDetResSubstitui>},
    {"14", "14 - Apuração do ICMS por Substituição Tributária", "RelatorioApuracaoSubTrib",
     Criar<RelatorioApuracaoSubTrib>},
    {"15", "15 - Ressarcimento do ICMS Retido por ST (Subitens 007.01 e 007.02) - ST-11",
     "RelatorioDetResSubstitut", Criar<RelatorioDetResSubstitut>, 2002},
    {"16", "16 - Registros de Exportação", "RelatorioRegExportacao", Criar<RelatorioRegExportacao>},
    {"17", "17 - Pagamentos", "RelatorioPagamentos", Criar<RelatorioPagamentos>},
}};

}  // namespace

std::span<const EntradaCatalogo> Catalogo() {
    return Entradas;
}

}  // namespace tarvo
