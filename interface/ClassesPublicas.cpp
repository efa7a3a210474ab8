// SPDX-License-Identifier: MIT
#include "interface/ClassesPublicas.h"

#include <string>

#include "data/CodigosDeErros.h"
#include "data/Procura.h"
#include "reports/RelatorioApuracaoOpProp.h"
#include "reports/RelatorioApuracaoSubTrib.h"
#include "reports/RelatorioCadastro.h"
#include "reports/RelatorioNotasSaiZFMALC.h"
#include "reports/RelatorioPagamentos.h"
#include "reports/RelatorioRegExportacao.h"
#include "reports/RelatorioResumoCFOPsEnt.h"
#include "reports/RelatorioResumoCFOPsSai.h"
#include "reports/RelatorioSaiInterestad.h"
#include "slip/RelatorioVELO.h"

namespace tarvo {

namespace {

ObjetoPublico CriarRelatorios(const Ambiente& ambiente, JanelaSelecao* janela) {
    if (janela == nullptr) {
        throw Erro(NumeroErro::AcaoNaoSuportada,
                   "RelatoriosTarvo.Relatorios precisa de uma janela de seleção.");
    }
    return std::make_unique<Relatorios>(ambiente, *janela);
}

template <class R>
ObjetoPublico CriarRelatorio(const Ambiente& ambiente, JanelaSelecao* /*janela*/) {
    return std::make_unique<R>(ambiente);
}

struct ClassePublica {
    std::string_view nome;
    ObjetoPublico (*criar)(const Ambiente& ambiente, JanelaSelecao* janela);
};

constexpr std::string_view Biblioteca = "RelatoriosTarvo.";

constexpr ClassePublica Classes[] = {
    {"Relatorios", CriarRelatorios},
    {"RelatorioVELO", CriarRelatorio<RelatorioVELO>},
    {"RelatorioCadastro", CriarRelatorio<RelatorioCadastro>},
    {"RelatorioResumoCFOPsEnt", CriarRelatorio<RelatorioResumoCFOPsEnt>},
    {"RelatorioResumoCFOPsSai", CriarRelatorio<RelatorioResumoCFOPsSai>},
    {"RelatorioSaiInterestad", CriarRelatorio<RelatorioSaiInterestad>},
    {"RelatorioNotasSaiZFMALC", CriarRelatorio<RelatorioNotasSaiZFMALC>},
    {"RelatorioApuracaoOpProp", CriarRelatorio<RelatorioApuracaoOpProp>},
    {"RelatorioApuracaoSubTrib", CriarRelatorio<RelatorioApuracaoSubTrib>},
    {"RelatorioRegExportacao", CriarRelatorio<RelatorioRegExportacao>},
    {"RelatorioPagamentos", CriarRelatorio<RelatorioPagamentos>},
};

}  // namespace

ObjetoPublico CriarObjeto(std::string_view nome, const Ambiente& ambiente, JanelaSelecao* janela) {
    const auto* const classe =
        nome.starts_with(Biblioteca)
            ? Achar(Classes, nome.substr(Biblioteca.size()), &ClassePublica::nome)
            : nullptr;
    if (classe != nullptr) {
        return classe->criar(ambiente, janela);
    }
    throw Erro(NumeroErro::NaoPodeCriarObjeto,
               "Não há classe pública \"" + std::string(nome) + "\".");
}

}  // namespace tarvo
