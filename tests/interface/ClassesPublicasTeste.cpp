#include "interface/ClassesPublicas.h"

#include "data/CodigosDeErros.h"
#include "tests/interface/Exemplo.h"

namespace tarvo::teste {
namespace {

constexpr std::string_view Relatorios_[] = {"RelatorioApuracaoOpProp", "RelatorioApuracaoSubTrib",
                                            "RelatorioCadastro",       "RelatorioNotasSaiZFMALC",
                                            "RelatorioPagamentos",     "RelatorioRegExportacao",
                                            "RelatorioResumoCFOPsEnt", "RelatorioResumoCFOPsSai",
                                            "RelatorioSaiInterestad",  "RelatorioVELO"};

constexpr std::string_view Internas[] = {"RelatorioEntInterestad",   "RelatorioMIDAXBCodigo1",
                                         "RelatorioMIDAXBCodigo2",   "RelatorioMIDAXBCodigo3",
                                         "RelatorioDetRecCredAcum",  "RelatorioDetRecCredAcVE",
                                         "RelatorioDetCentrRecImp",  "RelatorioDetResSubstitui",
                                         "RelatorioDetResSubstitut", "RelatorioDeclaracao"};

class JanelaQueNaoAbre final : public JanelaSelecao {
  public:
    void ExibirModal(frmImpressaoRelatorios& /*dialogo*/) override {}
};

NumeroErro ErroAoCriar(const std::string& nome) {
    try {
        CriarObjeto(nome);
    } catch (const Erro& erro) {
        EXPECT_NE(erro.Descricao().find(nome), std::string::npos);
        return erro.Numero();
    }
    ADD_FAILURE() << nome << " was created";
    return {};
}

TEST(ClassesPublicas, EveryReportClassComesByItsRegisteredName) {
    for (const auto nome : Relatorios_) {
        const auto objeto = CriarObjeto(Classe(nome));
        EXPECT_EQ(std::get<std::unique_ptr<Relatorio>>(objeto)->Identidade().classe, nome);
    }
}

TEST(ClassesPublicas, TheEntryClassNeedsTheHostsWindow) {
    JanelaQueNaoAbre janela;
    const auto objeto = CriarObjeto(Classe("Relatorios"), {}, &janela);
    EXPECT_NE(std::get<std::unique_ptr<Relatorios>>(objeto), nullptr);
    EXPECT_EQ(ErroAoCriar(Classe("Relatorios")), NumeroErro::AcaoNaoSuportada);
}

TEST(ClassesPublicas, InternalAndUnknownNamesAreRefused) {
    for (const auto nome : Internas) {
        EXPECT_EQ(ErroAoCriar(Classe(nome)), NumeroErro::NaoPodeCriarObjeto);
    }
    for (const auto* nome :
         {"", "RelatorioCadastro", "RelatoriosTarvo", "RelatoriosTarvo.", "Outra.RelatorioCadastro",
          "RelatoriosTarvo.RelatorioCadastro ", "RelatoriosTarvo.relatoriocadastro"}) {
        EXPECT_EQ(ErroAoCriar(nome), NumeroErro::NaoPodeCriarObjeto);
    }
}

}  // namespace
}  // namespace tarvo::teste
