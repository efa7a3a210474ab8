// SPDX-License-Identifier: MIT
#include "dispatch/Relatorios.h"

#include <functional>
#include <utility>

#include "dispatch/Catalogo.h"
#include "dispatch/frmImpressaoRelatorios.h"
#include "tests/support/Apoio.h"

namespace tarvo {
namespace {

using apoio::ErroDe;
using testing::ElementsAre;
using testing::IsEmpty;

// What the fakes saw, in order: "criar 3", "construir 3 111/7", "Exibir 3", "dialogo" ...
std::vector<std::string> diario;
// Runs inside Construir of every report.
std::function<void(std::size_t relatorio)> aoConstruir;

template <std::size_t N>
class RelatorioFalso : public RelatorioDeclaracao {
  public:
    explicit RelatorioFalso(const Ambiente& ambiente) : RelatorioDeclaracao(identidade, ambiente) {
        diario.push_back("criar " + numero);
    }
    ~RelatorioFalso() override { diario.push_back("liberar " + numero); }
    void Desenhar(BancoDados& /*banco*/, const std::string& IE, std::int32_t NumeroDRQ) override {
        diario.push_back("construir " + numero + " " + IE + "/" + std::to_string(NumeroDRQ));
        IniciarDocumento();
        if (aoConstruir) {
            aoConstruir(N);
        }
    }

  private:
    inline static const std::string numero = std::to_string(N);
    inline static const IdentidadeRelatorio identidade{
        .classe = "", .titulo = numero, .tituloResumido = ""};
};

// The catalogue's entries with reports that only note what is done to them.
template <std::size_t... N>
std::vector<EntradaSelecao> Falsos(const Ambiente& ambiente, std::index_sequence<N...> /*quais*/) {
    std::vector<EntradaSelecao> entradas;
    (entradas.push_back({Catalogo()[N].rotulo, std::make_unique<RelatorioFalso<N>>(ambiente),
                         Catalogo()[N].desde}),
     ...);
    return entradas;
}

class RelatoriosTeste : public testing::Test, public JanelaSelecao {
  protected:
    RelatoriosTeste() {
        Criar();
        diario.clear();
    }
    ~RelatoriosTeste() override { aoConstruir = nullptr; }

    void Criar() {
        relatorios = std::make_unique<Relatorios>(
            *this, Falsos({.visualizadores = &fabrica}, std::make_index_sequence<18>()));
    }
    void Declarar(const std::string& ref1) {
        banco.Executar("UPDATE tblDRQ SET Ref1 = " + ref1 + " WHERE NroDRQ = 7");
    }
    void Executar(std::int32_t opcoes) { relatorios->Executar(*banco, "111", 7, opcoes); }

    // Notes how the dialog was presented, then does what the test says.
    void ExibirModal(frmImpressaoRelatorios& dialogo) override {
        diario.emplace_back("dialogo");
        declaracao = dialogo.declaracao;
        oferecidas = dialogo.lstSelecao.Oferecidas();
        marcadas = dialogo.lstSelecao.Marcadas();
        foco = dialogo.lstSelecao.Foco();
        if (usuario) {
            usuario(dialogo);
        }
    }

    std::function<void(frmImpressaoRelatorios&)> usuario;
    std::string declaracao;
    std::uint32_t oferecidas = 0;  // a bit for each report
    std::uint32_t marcadas = 0;
    std::size_t foco = 99;
    apoio::BancoDeTeste banco{
        "INSERT INTO tblDRQ (NroDRQ, Ref1) VALUES (6, '2001-12-31'), (7, '2002-01-01')"};
    apoio::VisualizadoresAnotados fabrica{diario};
    std::unique_ptr<Relatorios> relatorios;
};

constexpr auto Visualizar = [](frmImpressaoRelatorios& d) { d.cmdVisualizar(); };
constexpr auto Imprimir = [](frmImpressaoRelatorios& d) { d.cmdImprimir(); };

TEST_F(RelatoriosTeste, CreatesAndReleasesTheReportsInListOrder) {
    std::vector<std::string> esperado;
    for (const auto* feito : {"criar ", "liberar "}) {
        for (int i = 0; i < 18; ++i) {
            esperado.push_back(feito + std::to_string(i));
        }
    }
    relatorios.reset();
    diario.clear();
    Criar();
    relatorios.reset();
    EXPECT_EQ(diario, esperado);
}

TEST_F(RelatoriosTeste, PreselectsByBitsAndFocusesTheFirstEntry) {
    for (const std::uint32_t bits : {1U, 0U, 0x3FFFFU, 0xFFFC0002U}) {
        Executar(static_cast<std::int32_t>(bits));
        EXPECT_EQ(marcadas, bits & 0x3FFFFU);
        EXPECT_EQ(foco, 0U);
    }
}

TEST_F(RelatoriosTeste, TellsTheDialogWhoseDeclarationItIsFor) {
    Executar(0);
    EXPECT_EQ(declaracao, "111, DRQ 7, 01/2002");
    banco.Executar("INSERT INTO tblContribuinte (IE, RazãoSocial) VALUES ('111', 'Padaria')");
    Executar(0);
    EXPECT_EQ(declaracao, "Padaria, DRQ 7, 01/2002");
    banco.Executar("DROP TABLE tblContribuinte");
    Executar(0);
    EXPECT_EQ(declaracao, "111, DRQ 7, 01/2002") << "no report rests on the name";
}

TEST_F(RelatoriosTeste, OffersEntry15OnlyForDeclarationsSince2002) {
    for (const auto& [ref1, entradas] :
         {std::pair{"'2002-01-01'", 0x3FFFFU}, {"NULL", 0x37FFFU}, {"'2001-12-31'", 0x37FFFU}}) {
        Declarar(ref1);
        Executar(0);
        EXPECT_EQ(oferecidas, entradas) << ref1;
    }
    // Those after it still produce their own reports.
    usuario = Visualizar;
    diario.clear();
    Executar(0b111 << 15);
    EXPECT_EQ(marcadas, 0b110U << 15);
    EXPECT_THAT(diario, ElementsAre("dialogo", "construir 16 111/7", "Exibir 16",
                                    "construir 17 111/7", "Exibir 17"));
}

TEST_F(RelatoriosTeste, EachReportIsBuiltAndShownBeforeTheNextIsBuilt) {
    usuario = [](frmImpressaoRelatorios& d) {
        d.lstSelecao.Selecionar(17, true);
        d.lstSelecao.Selecionar(3, true);
        d.cmdVisualizar();
    };
    Executar(2);
    EXPECT_THAT(diario, ElementsAre("dialogo", "construir 1 111/7", "Exibir 1", "construir 3 111/7",
                                    "Exibir 3", "construir 17 111/7", "Exibir 17"));
}

TEST_F(RelatoriosTeste, NothingIsBuiltWhenTheDialogIsClosedOrNothingIsSelected) {
    Executar(262143);
    usuario = Imprimir;
    Executar(0);
    usuario = [](frmImpressaoRelatorios& d) { d.lngModoSaida = 3; };
    Executar(1);
    EXPECT_THAT(diario, ElementsAre("dialogo", "dialogo", "dialogo"));
}

TEST_F(RelatoriosTeste, TheOutputModeIsReadAgainAfterEachBuild) {
    usuario = [](frmImpressaoRelatorios& d) {
        d.cmdVisualizar();
        aoConstruir = [&d](std::size_t relatorio) {
            d.lngModoSaida = relatorio == 2 ? ModoSaida::Nenhum : ModoSaida::Imprimir;
        };
    };
    Executar(0b111);
    EXPECT_THAT(diario, ElementsAre("dialogo", "construir 0 111/7", "Imprimir 0",
                                    "construir 1 111/7", "Imprimir 1", "construir 2 111/7"));
}

TEST_F(RelatoriosTeste, AnErrorEndsTheCallAndLeavesWhatWasProduced) {
    usuario = Imprimir;
    aoConstruir = [](std::size_t relatorio) {
        if (relatorio == 4) {
            throw Erro(NumeroErro::UsoInvalidoDeNull, "Uso inválido de Null.");
        }
    };
    const Erro erro = ErroDe([&] { Executar(0b111000); });
    EXPECT_EQ(erro.Numero(), NumeroErro::UsoInvalidoDeNull);
    EXPECT_EQ(erro.Descricao(), "Uso inválido de Null.");
    EXPECT_TRUE(relatorios->QueFalhou().starts_with("05 - ")) << relatorios->QueFalhou();
    EXPECT_THAT(diario,
                ElementsAre("dialogo", "construir 3 111/7", "Imprimir 3", "construir 4 111/7"));
}

TEST_F(RelatoriosTeste, AMissingDeclarationIsAnErrorBeforeTheDialog) {
    banco.Executar("DELETE FROM tblDRQ WHERE NroDRQ = 7");
    EXPECT_EQ(apoio::NumeroDe([&] { Executar(1); }), NumeroErro::RegistroAtualAusente);
    EXPECT_THAT(diario, IsEmpty());
}

TEST_F(RelatoriosTeste, AListOfTheHostsOwnMayBeShorterAndOfOtherYears) {
    std::vector<EntradaSelecao> entradas =
        Falsos({.visualizadores = &fabrica}, std::make_index_sequence<3>());
    entradas[0].desde = entradas[2].desde = 2002;
    relatorios = std::make_unique<Relatorios>(*this, std::move(entradas));
    usuario = Visualizar;
    diario.clear();
    Executar(0b101);
    Declarar("'2001-12-31'");
    Executar(0b111);
    EXPECT_THAT(diario, ElementsAre("dialogo", "construir 0 111/7", "Exibir 0", "construir 2 111/7",
                                    "Exibir 2", "Ocultar 0", "Ocultar 2", "dialogo",
                                    "construir 1 111/7", "Exibir 1"));
    relatorios = std::make_unique<Relatorios>(*this, std::vector<EntradaSelecao>{});
    Executar(1);
    EXPECT_EQ(oferecidas, 0U);
}

TEST(Catalogo, EachRowNamesTheClassThatItCreates) {
    for (const auto& entrada : Catalogo()) {
        EXPECT_EQ(entrada.criar({})->Identidade().classe, entrada.classe);
        EXPECT_TRUE(entrada.rotulo.starts_with(entrada.codigo));
    }
}

}  // namespace
}  // namespace tarvo
