#include "dispatch/Relatorios.h"

#include <gmock/gmock.h>

#include <array>
#include <functional>
#include <optional>
#include <utility>

#include "data/CodigosDeErros.h"
#include "dispatch/Catalogo.h"
#include "dispatch/frmImpressaoRelatorios.h"

namespace tarvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What the fakes saw, in order: "criar 3", "construir 3 111/7", "exibir 3", "dialogo" ...
std::vector<std::string> diario;
// Runs inside Construir of every report.
std::function<void(std::size_t relatorio)> aoConstruir;

// tblDRQ with one declaration or none.
class BancoFalso : public BancoDados {
  public:
    explicit BancoFalso(std::optional<Valor> ref1) : ref1_(std::move(ref1)) {}
    std::unique_ptr<Recordset> OpenRecordset(std::string_view consulta,
                                             TipoRecordset tipo) override {
        EXPECT_EQ(consulta, "select Ref1 from tblDRQ where NroDRQ = 7");
        EXPECT_EQ(tipo, TipoRecordset::ForwardOnly);
        return std::make_unique<Linha>(ref1_);
    }
    std::unique_ptr<QueryDef> CreateQueryDef(std::string_view, std::string_view) override {
        return nullptr;
    }

  private:
    class Linha : public Recordset {
      public:
        explicit Linha(std::optional<Valor> ref1) : ref1_(std::move(ref1)) {}
        [[nodiscard]] bool BOF() const override { return !ref1_; }
        [[nodiscard]] bool EOF_() const override { return !ref1_; }
        void MoveNext() override {}
        void AddNew() override {}
        void Update() override {}
        void Close() override {}

      private:
        [[nodiscard]] std::size_t Coluna(std::string_view) const override { return 0; }
        [[nodiscard]] std::size_t Coluna(int) const override { return 0; }
        [[nodiscard]] Valor Ler(std::size_t) const override {
            if (!ref1_) {
                throw Erro(NumeroErro::RegistroAtualAusente, "Não há registro atual.");
            }
            return *ref1_;
        }
        void Escrever(std::size_t, const Valor&) override {}
        std::optional<Valor> ref1_;
    };
    std::optional<Valor> ref1_;
};

// Notes each call under the number that its document carries as title.
class VisualizadorFalso : public Visualizador {
  public:
    void Exibir(const Conteudo& conteudo) override {
        relatorio_ = conteudo.titulo;
        diario.push_back("exibir " + relatorio_);
    }
    void Ocultar() override { diario.push_back("ocultar " + relatorio_); }
    void Imprimir(const Conteudo& conteudo, bool perguntar) override {
        EXPECT_FALSE(perguntar);
        diario.push_back("imprimir " + conteudo.titulo);
    }

  private:
    std::string relatorio_;
};

class FabricaFalsa : public FabricaVisualizadores {
  public:
    std::unique_ptr<Visualizador> Criar() override { return std::make_unique<VisualizadorFalso>(); }
};

template <std::size_t N>
class RelatorioFalso : public RelatorioDeclaracao {
  public:
    explicit RelatorioFalso(const Ambiente& ambiente) : RelatorioDeclaracao(identidade, ambiente) {
        diario.push_back("criar " + numero);
    }
    ~RelatorioFalso() override { diario.push_back("liberar " + numero); }
    RelatorioFalso(const RelatorioFalso&) = delete;
    RelatorioFalso& operator=(const RelatorioFalso&) = delete;
    void Construir(BancoDados&, const std::string& IE, std::int32_t NumeroDRQ) override {
        diario.push_back("construir " + numero + " " + IE + "/" + std::to_string(NumeroDRQ));
        IniciarDocumento();
        if (aoConstruir) {
            aoConstruir(N);
        }
    }
    static std::unique_ptr<RelatorioDeclaracao> Criar(const Ambiente& ambiente) {
        return std::make_unique<RelatorioFalso>(ambiente);
    }

  private:
    inline static const std::string numero = std::to_string(N);
    inline static const IdentidadeRelatorio identidade{
        .classe = "", .titulo = numero, .tituloResumido = ""};
};

template <std::size_t... N>
auto CatalogoFalso(std::index_sequence<N...>) {
    return std::array<EntradaCatalogo, sizeof...(N)>{
        EntradaCatalogo{"", Catalogo()[N].rotulo, RelatorioFalso<N>::Criar}...};
}

// Notes how the dialog was presented, then does what the test says.
class JanelaFalsa : public JanelaSelecao {
  public:
    void ExibirModal(frmImpressaoRelatorios& dialogo) override {
        diario.emplace_back("dialogo");
        quantidade = dialogo.lstSelecao.Quantidade();
        foco = dialogo.lstSelecao.Foco();
        marcadas.clear();
        for (std::size_t i = 0; i < quantidade; ++i) {
            if (dialogo.lstSelecao.Selecionada(i)) {
                marcadas.push_back(i);
            }
        }
        if (usuario) {
            usuario(dialogo);
        }
    }
    std::function<void(frmImpressaoRelatorios&)> usuario;
    std::size_t quantidade = 0;
    std::size_t foco = 99;
    std::vector<std::size_t> marcadas;
};

class RelatoriosTeste : public testing::Test {
  protected:
    RelatoriosTeste() {
        aoConstruir = nullptr;
        relatorios =
            std::make_unique<Relatorios>(Ambiente{.visualizadores = &fabrica}, janela, catalogo);
        diario.clear();
    }
    void Executar(std::int32_t opcoes, std::optional<Valor> ref1 = Data::DeIso("2002-01-01")) {
        BancoFalso banco(std::move(ref1));
        relatorios->Executar(banco, "111", 7, opcoes);
    }

    FabricaFalsa fabrica;
    JanelaFalsa janela;
    std::array<EntradaCatalogo, 18> catalogo = CatalogoFalso(std::make_index_sequence<18>());
    std::unique_ptr<Relatorios> relatorios;
};

TEST_F(RelatoriosTeste, CreatesAndReleasesTheReportsInListOrder) {
    relatorios.reset();
    std::vector<std::string> liberados;
    liberados.reserve(18);
    for (int i = 0; i < 18; ++i) {
        liberados.push_back("liberar " + std::to_string(i));
    }
    EXPECT_EQ(diario, liberados);
    diario.clear();
    relatorios = std::make_unique<Relatorios>(Ambiente{}, janela, catalogo);
    EXPECT_EQ(diario.front(), "criar 0");
    EXPECT_EQ(diario.back(), "criar 17");
    EXPECT_EQ(diario.size(), 18U);
}

TEST_F(RelatoriosTeste, PreselectsByBitsAndFocusesTheFirstEntry) {
    Executar(1);
    EXPECT_THAT(janela.marcadas, ElementsAre(0U));
    EXPECT_EQ(janela.quantidade, 18U);
    EXPECT_EQ(janela.foco, 0U);
    Executar(0);
    EXPECT_THAT(janela.marcadas, IsEmpty());
    Executar(262143);
    EXPECT_EQ(janela.marcadas.size(), 18U);
    Executar(static_cast<std::int32_t>(0xFFFC0002U));
    EXPECT_THAT(janela.marcadas, ElementsAre(1U));
}

TEST_F(RelatoriosTeste, OffersEntry15OnlyForDeclarationsSince2002) {
    const std::pair<Valor, std::size_t> casos[] = {{*Data::DeIso("2001-12-31"), 17},
                                                   {*Data::DeIso("2002-01-01"), 18},
                                                   {*Data::DeIso("2003-06-01"), 18},
                                                   {Nulo{}, 17}};
    for (const auto& [ref1, quantidade] : casos) {
        Executar(0, ref1);
        EXPECT_EQ(janela.quantidade, quantidade);
    }
}

TEST_F(RelatoriosTeste, EntriesAfterTheRemovedOneProduceTheirOwnReports) {
    janela.usuario = [](frmImpressaoRelatorios& d) { d.cmdVisualizar(); };
    Executar(1 << 15 | 1 << 16 | 1 << 17, Data::DeIso("2001-01-01"));
    EXPECT_THAT(janela.marcadas, ElementsAre(15U, 16U));
    EXPECT_THAT(diario, ElementsAre("dialogo", "construir 16 111/7", "exibir 16",
                                    "construir 17 111/7", "exibir 17"));
}

TEST_F(RelatoriosTeste, EachReportIsBuiltAndShownBeforeTheNextIsBuilt) {
    janela.usuario = [](frmImpressaoRelatorios& d) {
        d.lstSelecao.Selecionar(17, true);
        d.lstSelecao.Selecionar(3, true);
        d.cmdVisualizar();
    };
    Executar(2);
    EXPECT_THAT(diario, ElementsAre("dialogo", "construir 1 111/7", "exibir 1", "construir 3 111/7",
                                    "exibir 3", "construir 17 111/7", "exibir 17"));
}

TEST_F(RelatoriosTeste, NothingIsBuiltWhenTheDialogIsClosedOrNothingIsSelected) {
    Executar(262143);
    EXPECT_THAT(diario, ElementsAre("dialogo"));
    janela.usuario = [](frmImpressaoRelatorios& d) { d.cmdImprimir(); };
    Executar(0);
    EXPECT_THAT(diario, ElementsAre("dialogo", "dialogo"));
    janela.usuario = [](frmImpressaoRelatorios& d) { d.lngModoSaida = 3; };
    Executar(1);
    EXPECT_THAT(diario, ElementsAre("dialogo", "dialogo", "dialogo"));
}

TEST_F(RelatoriosTeste, TheOutputModeIsReadAgainAfterEachBuild) {
    frmImpressaoRelatorios* dialogo = nullptr;
    janela.usuario = [&](frmImpressaoRelatorios& d) {
        dialogo = &d;
        d.cmdVisualizar();
    };
    aoConstruir = [&](std::size_t relatorio) {
        dialogo->lngModoSaida = relatorio == 2 ? ModoSaida::Nenhum : ModoSaida::Imprimir;
    };
    Executar(0b111);
    EXPECT_THAT(diario, ElementsAre("dialogo", "construir 0 111/7", "imprimir 0",
                                    "construir 1 111/7", "imprimir 1", "construir 2 111/7"));
}

TEST_F(RelatoriosTeste, ANewCallHidesEarlierPreviewsBeforeTheDialog) {
    janela.usuario = [](frmImpressaoRelatorios& d) { d.cmdVisualizar(); };
    Executar(1 << 2 | 1 << 9);
    diario.clear();
    janela.usuario = nullptr;
    Executar(0);
    EXPECT_THAT(diario, ElementsAre("ocultar 2", "ocultar 9", "dialogo"));
}

TEST_F(RelatoriosTeste, AnErrorEndsTheCallAndLeavesWhatWasProduced) {
    janela.usuario = [](frmImpressaoRelatorios& d) { d.cmdImprimir(); };
    aoConstruir = [](std::size_t relatorio) {
        if (relatorio == 4) {
            throw Erro(NumeroErro::UsoInvalidoDeNull, "Uso inválido de Null.");
        }
    };
    try {
        Executar(0b111000);
        FAIL() << "the error was swallowed";
    } catch (const Erro& erro) {
        EXPECT_EQ(erro.Numero(), NumeroErro::UsoInvalidoDeNull);
        EXPECT_EQ(erro.Descricao(), "Uso inválido de Null.");
    }
    EXPECT_THAT(diario,
                ElementsAre("dialogo", "construir 3 111/7", "imprimir 3", "construir 4 111/7"));
}

TEST_F(RelatoriosTeste, AMissingDeclarationIsAnErrorBeforeTheDialog) {
    try {
        Executar(1, std::nullopt);
        FAIL() << "no error";
    } catch (const Erro& erro) {
        EXPECT_EQ(erro.Numero(), NumeroErro::RegistroAtualAusente);
    }
    EXPECT_THAT(diario, IsEmpty());
}

TEST_F(RelatoriosTeste, AReportThatIsNotBuiltYetSaysSoWhenChosen) {
    catalogo[9].criar = nullptr;
    relatorios =
        std::make_unique<Relatorios>(Ambiente{.visualizadores = &fabrica}, janela, catalogo);
    janela.usuario = [](frmImpressaoRelatorios& d) { d.cmdVisualizar(); };
    try {
        Executar(1 << 9);
        FAIL() << "no error";
    } catch (const Erro& erro) {
        EXPECT_EQ(erro.Numero(), NumeroErro::AcaoNaoSuportada);
        EXPECT_THAT(erro.Descricao(), testing::HasSubstr("10 - Apuração do ICMS"));
    }
    EXPECT_EQ(janela.quantidade, 18U);
}

}  // namespace
}  // namespace tarvo
