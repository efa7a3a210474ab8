// SPDX-License-Identifier: MIT
#include <fstream>
#include <nlohmann/json.hpp>

#include "dispatch/Catalogo.h"
#include "dispatch/Declaracoes.h"
#include "host/example/Exemplo.h"
#include "review/Revisao.h"
#include "slip/RelatorioVELO.h"
#include "tests/output/tables/LeituraDeTabelas.h"
#include "tests/support/Apoio.h"
#include "tests/support/BancoSorteado.h"

// The tables of real reports against their pages, held together by a program that knows the files
// alone (conferir).
namespace tarvo {
namespace {

using Json = nlohmann::json;

// What of a page is read, as it was recorded: the texts of columns' headings, and all others.
Json TextosQueSeLeem(const Conteudo& conteudo) {
    const auto& [elementos, donos] = conteudo.estrutura;
    Json textos{{"titulos", Json::array()}, {"corpo", Json::array()}};
    for (std::size_t p = 0; p < conteudo.paginas.size(); ++p) {
        for (std::size_t i = 0; i < conteudo.paginas[p].size(); ++i) {
            const auto* const texto = std::get_if<Texto>(&conteudo.paginas[p][i]);
            if (texto == nullptr || donos[p][i] == Estrutura::Decoracao) {
                continue;
            }
            bool titulo = false;
            for (auto e = donos[p][i]; e != Estrutura::Raiz; e = elementos[e].pai) {
                titulo = titulo || (elementos[e].tipo == TipoElemento::LinhaDeTabela &&
                                    elementos[e].funcao == FuncaoDaLinha::Titulos);
            }
            textos[titulo ? "titulos" : "corpo"].push_back(texto->texto);
        }
    }
    return textos;
}

class TabelasDosRelatorios : public testing::Test {
  protected:
    // What of it its host's user would be told beside the pages: achados.
    void Gravar(const std::string& nome, const Conteudo& conteudo, std::ptrdiff_t achados,
                bool planilha) {
        Json pagina = TextosQueSeLeem(conteudo);
        pagina["achados"] = achados;
        std::ofstream(pasta / (nome + ".json")) << pagina;
        std::ofstream(pasta / (nome + ".csv"), std::ios::binary) << apoio::ComoCSV(conteudo);
        if (planilha) {
            std::ofstream(pasta / (nome + ".xlsx"), std::ios::binary) << apoio::ComoXLSX(conteudo);
        }
    }
    [[nodiscard]] Json Conferir() const {
        return Json::parse(
            apoio::SaidaDe(TARVO_CONFERIR_TABELAS " '" + pasta.Caminho().string() + "'"), nullptr,
            false);
    }
    // All reports of a declaration, but those that end with an error.
    void GravarTodos(BancoDados& banco, const PedidoDeRevisao& pedido, bool planilhas) {
        const auto achados = Revisar(banco, pedido);
        for (const auto& entrada : Catalogo()) {
            const std::string codigo(entrada.codigo);
            const auto relatorio = entrada.criar({.configuracoes = pedido.configuracoes});
            try {
                relatorio->Construir(banco, pedido.IE, *pedido.NroDRQ);
            } catch (const Erro&) {
                continue;
            }
            ++documentos;
            Gravar(std::to_string(documentos) + "-" + codigo, relatorio->Documento(),
                   std::ranges::count(achados, codigo, &Achado::relatorio), planilhas);
        }
    }
    apoio::PastaTemporaria pasta;
    int documentos = 0;
};

TEST_F(TabelasDosRelatorios, HoldWhatIsReadOnThePagesOfTheExampleAndAddUp) {
    apoio::BancoDeTeste banco(ScriptDeExemplo());
    const apoio::ConfiguracaoFixa configuracoes("07/2003");
    for (const auto& declaracao : LerDeclaracoes(*banco)) {
        GravarTodos(
            *banco,
            {.IE = *declaracao.IE, .NroDRQ = declaracao.NroDRQ, .configuracoes = &configuracoes},
            true);
    }
    RelatorioVELO velo;
    velo.Construir(*banco);
    Gravar("VELO", velo.Documento(), 0, true);
    const Json resultado = Conferir();
    EXPECT_EQ(resultado["faults"], Json::array());
    EXPECT_GT(resultado["totals"], 400);
    EXPECT_GT(resultado["cells"], 10'000);
}

TEST_F(TabelasDosRelatorios, OfRandomDeclarationsToo) {
    apoio::BancoDeTeste banco(apoio::TabelasSemChaves);
    for (unsigned semente = 1; semente <= 40; ++semente) {
        const apoio::BancoSorteado b(semente);
        banco.Executar(apoio::EsvaziarTabelas + b.sql);
        const apoio::ConfiguracaoFixa configuracoes(b.novos ? "07/2003" : "05/2001");
        GravarTodos(*banco, {.IE = "1", .NroDRQ = 1, .configuracoes = &configuracoes}, false);
    }
    const Json resultado = Conferir();
    EXPECT_EQ(resultado["faults"], Json::array());
    EXPECT_GT(resultado["totals"], 1'000);
}

}  // namespace
}  // namespace tarvo
