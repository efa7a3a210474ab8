// SPDX-License-Identifier: MIT
#include "desktop/printing/FilaImpressao.h"

#include <fstream>
#include <future>
#include <iterator>
#include <thread>

#include "document/DocumentoRelatorio.h"
#include "output/pdf/RenderizadorPDF.h"
#include "tests/desktop/printing/ServicoDeImpressao.h"

namespace tarvo {
namespace {

using apoio::ErroDe;
using apoio::SaidaDe;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

std::string Pdf(int paginas, std::int32_t orientacao) {
    DocumentoRelatorio documento;
    documento.DefinirTitulo("Relatório de Teste");
    documento.DefinirOrientacao(orientacao);
    documento.DefinirMargens(2, 2, 2, 2);
    for (int i = 1; i <= paginas; ++i) {
        if (i > 1) {
            documento.NovaPagina();
        }
        documento.EscreverTexto(0, 0, 10, 1, "FOLHA" + std::to_string(i), 0, 0, "Arial", 20, false,
                                false, false, 0);
    }
    std::string bytes;
    RenderizarPDF(documento.Registrado(), bytes);
    return bytes;
}

// Where the word FOLHA1 stands on its sheet, points.
Caixa Folha1(const std::filesystem::path& pdf) {
    std::istringstream lados(
        SaidaDe("pdftotext -bbox '" + pdf.string() + "' - | grep '>FOLHA1<' | tr -c '0-9.' ' '"));
    double x = 0;
    double y = 0;
    double direita = 0;
    double base = 0;
    lados >> x >> y >> direita >> base;
    return {x, y, direita - x, base - y};
}

class FilaImpressao : public testing::Test {
  protected:
    static void SetUpTestSuite() { servico = std::make_unique<apoio::ServicoDeImpressao>(); }
    static void TearDownTestSuite() { servico.reset(); }
    inline static std::unique_ptr<apoio::ServicoDeImpressao> servico;
};

TEST_F(FilaImpressao, TheBytesArriveAsTheyWereSent) {
    const auto pdf = Pdf(3, 0);
    EXPECT_GT(
        EnviarTrabalho(
            {.pdf = pdf, .titulo = "Informações p/ MIDAX", .opcoes = {.impressora = "Direta"}}),
        0);
    std::ifstream chegada(servico->Chegada("midax"), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(chegada), {}), pdf);
}

TEST_F(FilaImpressao, SheetsAreA4WithTheirOrientationAndUnscaled) {
    EnviarTrabalho({.pdf = Pdf(3, 0), .titulo = "retrato", .opcoes = {.impressora = "Laser"}});
    EnviarTrabalho({.pdf = Pdf(2, 1), .titulo = "paisagem", .opcoes = {.impressora = "Laser"}});
    const auto retrato = servico->Chegada("retrato");
    const auto paisagem = servico->Chegada("paisagem");
    for (const auto& [arquivo, paginas] : {std::pair{retrato, "3"}, {paisagem, "2"}}) {
        EXPECT_THAT(
            SaidaDe("pdfinfo '" + arquivo.string() + "'"),
            AllOf(HasSubstr("Pages:           " + std::string(paginas)), HasSubstr("(A4)")));
    }
    // The word stands where the page has it, 2 cm from the left; a landscape page lies along the
    // sheet, so that its words run upwards or downwards: higher than wide.
    EXPECT_NEAR(Folha1(retrato).x, 56.65, 0.06);
    const Caixa deLado = Folha1(paisagem);
    EXPECT_GT(deLado.altura, 2 * deLado.largura);
    EXPECT_NEAR(deLado.altura, 78.4, 1.5);  // FOLHA1 in Arial 20
}

TEST_F(FilaImpressao, OnlyAQueueThatPreparesThePagesDoesOptions) {
    const auto laser = ConsultarRecursos("Laser");
    EXPECT_TRUE(laser.copias);
    EXPECT_TRUE(laser.escala);
    EXPECT_TRUE(laser.frenteEVerso);
    const auto direta = ConsultarRecursos("Direta");
    EXPECT_FALSE(direta.copias || direta.frenteEVerso || direta.escala);
}

TEST_F(FilaImpressao, OptionsReachTheQueueAndCopiesAreOneAfterTheOther) {
    const auto opcoes = [](OpcoesDeImpressao pedidas) {
        pedidas.impressora = "Laser";
        return servico->Opcoes(
            EnviarTrabalho({.pdf = Pdf(2, 0), .titulo = "opções", .opcoes = pedidas}));
    };
    EXPECT_THAT(opcoes({}), AllOf(HasSubstr("none"), Not(HasSubstr("sided-"))));
    EXPECT_THAT(opcoes({.copias = 3, .lados = Lados::FrenteEVersoBordaCurta, .ajustar = true}),
                AllOf(HasSubstr(std::string("copies\0\4\0\0\0\3", 12)),
                      HasSubstr("separate-documents-collated-copies"),
                      HasSubstr("two-sided-short-edge"), HasSubstr("fit")));
}

TEST_F(FilaImpressao, TheUsersDefaultPrinterIsTakenWhenNoneIsNamed) {
    setenv("LPDEST", "Direta", 1);
    EnviarTrabalho({.pdf = Pdf(1, 0), .titulo = "predefinida"});
    EXPECT_TRUE(ListarImpressoras()[0].padrao);
    unsetenv("LPDEST");
    EXPECT_FALSE(servico->Chegada("predefinida").empty());
}

TEST_F(FilaImpressao, SaysWhyNothingCanBePrinted) {
    const auto pdf = Pdf(1, 0);
    const auto antes = servico->Trabalhos();
    const std::pair<const char*, const char*> casos[] = {
        {"", "Não há impressora padrão. Escolha uma destas: Direta, Laser"},
        {"Inexistente", "Não há impressora \"Inexistente\". Existem: Direta, Laser"},
        {"Parada", "\"Parada\" está parada"},
        {"Recusa", "\"Recusa\" não está aceitando trabalhos"}};
    for (const auto& [impressora, texto] : casos) {
        const TrabalhoImpressao trabalho{
            .pdf = pdf, .titulo = "x", .opcoes = {.impressora = impressora}};
        const Erro e = ErroDe([&] { EnviarTrabalho(trabalho); });
        EXPECT_EQ(e.Numero(), NumeroErro::ErroImpressora) << impressora;
        EXPECT_THAT(e.Descricao(), HasSubstr(texto));
    }
    EXPECT_EQ(servico->Trabalhos(), antes);
}

TEST_F(FilaImpressao, ACancelledJobPrintsNothingAndIsToldAsCancelled) {
    const std::atomic<bool> cancelar = true;
    const auto antes = servico->Trabalhos();
    const Erro e = ErroDe([&] {
        EnviarTrabalho({.pdf = Pdf(1, 0), .titulo = "x", .opcoes = {.impressora = "Direta"}},
                       &cancelar);
    });
    EXPECT_EQ(e.Numero(), NumeroErro::Cancelado) << e.Descricao();
    EXPECT_EQ(servico->Trabalhos(), antes);
}

TEST_F(FilaImpressao, AJobThatIsGivenUpHalfwayDoesNotStayInTheQueue) {
    // More than the service takes: it refuses the rest once the job has its number.
    const std::string grande(4'000'000, 'x');
    const auto antes = servico->Trabalhos();
    const Erro e = ErroDe([&] {
        EnviarTrabalho({.pdf = grande, .titulo = "x", .opcoes = {.impressora = "Direta"}});
    });
    EXPECT_EQ(e.Numero(), NumeroErro::ErroImpressora) << e.Descricao();
    EXPECT_EQ(servico->Trabalhos(), antes + 1);
    // Jobs of other tests may still be on their way; one that is given up would never end.
    const auto fila = [] { return SaidaDe("lpstat -W not-completed -o"); };
    for (int vezes = 0; vezes < 600 && !fila().empty(); ++vezes) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    EXPECT_EQ(fila(), "");
}

TEST_F(FilaImpressao, ListsThePrintersThatCanBeChosen) {
    const auto impressoras = ListarImpressoras();
    ASSERT_EQ(impressoras.size(), 4U);
    EXPECT_EQ(impressoras[1].nome, "Laser");
    EXPECT_FALSE(impressoras[1].padrao);
}

// The print library reads where its service is once per thread.
template <class Acao>
Erro ErroEmOutraThread(Acao acao) {
    return std::async(std::launch::async, [&] { return ErroDe(acao); }).get();
}

TEST(FilaImpressaoSemServico, AnUnreachableServiceIsSaid) {
    setenv("CUPS_SERVER", "/nenhum/cups.sock", 1);
    const Erro e = ErroEmOutraThread([] { static_cast<void>(ListarImpressoras()); });
    unsetenv("CUPS_SERVER");
    EXPECT_EQ(e.Numero(), NumeroErro::ErroImpressora);
    EXPECT_THAT(e.Descricao(), HasSubstr("CUPS"));
}

TEST(FilaImpressaoSemServico, WaitingForASilentServiceEndsByItselfOrByTheUser) {
    apoio::ServicoMudo mudo;
    std::atomic<bool> cancelar = false;
    const auto enviar = [&] { EnviarTrabalho({.pdf = "x", .titulo = "x"}, &cancelar); };
    std::thread usuario([&] {
        mudo.EsperarCliente();
        cancelar = true;
    });
    const Erro doUsuario = ErroEmOutraThread(enviar);
    usuario.join();
    EXPECT_EQ(doUsuario.Numero(), NumeroErro::Cancelado) << doUsuario.Descricao();
    cancelar = false;
    EXPECT_EQ(ErroEmOutraThread(enviar).Numero(), NumeroErro::ErroImpressora);
}

}  // namespace
}  // namespace tarvo
