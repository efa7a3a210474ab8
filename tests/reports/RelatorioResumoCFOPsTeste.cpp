// SPDX-License-Identifier: MIT
#include "data/Textos.h"
#include "reports/FaixasCFOP.h"
#include "reports/FormatosCFOP.h"
#include "reports/ReferenciaAtual.h"
#include "reports/RelatorioResumoCFOPsSai.h"
#include "tests/support/Apoio.h"

namespace tarvo::apoio {
namespace {

TEST(ResumoCFOPs, CodesAreFormattedByTheirTable) {
    const std::pair<const char*, const char*> novos[] = {
        {"5.101", "5.101"}, {"5101", "5.101"}, {"55101", "55.101"},
        {"00511", "0.511"}, {"5.11", "0.511"}, {"", ""},
        {"511", ""},        {"5.101.1", ""},   {"5.1a", "5.1a"}};
    for (const auto& [codigo, formatado] : novos) {
        EXPECT_EQ(FormatarCFOPNovo(codigo), formatado) << codigo;
    }
    const std::pair<const char*, const char*> antigos[] = {
        {"5.11", "5.11"},   {"511", "5.11"}, {"5991", "5.99.1"},  {"5.99.1", "5.99.1"},
        {"59.91", "59.91"}, {"5.1", "0.51"}, {"5.9.1", "0.59.1"}, {"", ""},
        {"51", ""},         {"59911", ""},   {"5.9.9.1", ""},     {"5.1x", "5.1x"}};
    for (const auto& [codigo, formatado] : antigos) {
        EXPECT_EQ(FormatarCFOPAntigo(codigo), formatado) << codigo;
    }
}

// The label of a three-digit group fills its cell and ends with its bounds.
TEST(ResumoCFOPs, RangesAgreeWithTheirLabelsAndDoNotOverlap) {
    for (const auto& [faixas, antigas] : {std::pair{FaixasCFOP::EntradasAntigas, true},
                                          {FaixasCFOP::SaidasAntigas, true},
                                          {FaixasCFOP::EntradasNovas, false},
                                          {FaixasCFOP::SaidasNovas, false}}) {
        for (const FaixaCFOP& a : faixas) {
            SCOPED_TRACE(a.rotulo);
            EXPECT_LE(Caracteres(a.rotulo), 25U);
            if (antigas && !a.EhTitulo()) {
                const std::string fim(a.extra.empty() ? a.ate : a.extra);
                EXPECT_TRUE(a.rotulo.ends_with(a.de == fim ? fim : std::string(a.de) + "/" + fim));
                EXPECT_EQ(Caracteres(a.rotulo), 25U);
            }
            EXPECT_LE(a.de, a.ate);
            EXPECT_EQ(a.de.substr(0, 1), a.ate.substr(0, 1));
            EXPECT_EQ(std::ranges::count_if(faixas,
                                            [&](const FaixaCFOP& b) {
                                                return !b.EhTitulo() && a.de <= b.ate &&
                                                       b.de <= a.ate;
                                            }),
                      a.EhTitulo() ? 0 : 1);
        }
    }
}

TEST(ResumoCFOPs, APeriodThatIsEmptyOrHasATimeIsNoMonth) {
    BancoDeTeste banco("insert into tblDRQ (NroDRQ, Ref1) values (1, '2003-07-01');");
    for (const char* refAtual : {"", "01/2003 10:00"}) {
        const ConfiguracaoFixa configuracoes(refAtual);
        RelatorioResumoCFOPsSai relatorio({.configuracoes = &configuracoes});
        EXPECT_EQ(NumeroDe([&] { relatorio.Construir(*banco, "1", 1); }),
                  NumeroErro::TipoIncompativel);
    }
    EXPECT_TRUE(DataDeReferencia("12/30") < DataDeReferencia("01/29"));
}

}  // namespace
}  // namespace tarvo::apoio
