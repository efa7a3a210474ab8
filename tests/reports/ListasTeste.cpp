// SPDX-License-Identifier: MIT
#include "data/Textos.h"
#include "dispatch/Catalogo.h"
#include "document/Imagens.h"
#include "tests/reports/PaginaEsperada.h"

// What every list report keeps.
namespace tarvo::apoio {
namespace {

std::vector<std::unique_ptr<RelatorioDeclaracao>> Listas() {
    constexpr std::string_view outros[] = {"01", "02", "03", "10", "14"};
    std::vector<std::unique_ptr<RelatorioDeclaracao>> listas;
    for (const auto& entrada : Catalogo()) {
        if (std::find(std::begin(outros), std::end(outros), entrada.codigo) == std::end(outros)) {
            listas.push_back(entrada.criar({}));
        }
    }
    return listas;
}

TEST(Listas, AMissingTaxpayerOrDeclarationGivesATitledEmptyPage) {
    BancoDeTeste banco(DuasDeclaracoes);
    const auto listas = Listas();
    ASSERT_EQ(listas.size(), 13U);
    for (const auto& relatorio : listas) {
        for (const auto& [IE, numero] : {std::pair{"1", 9}, {"' or 'a'='a", 1}}) {
            relatorio->Construir(*banco, "1", 1);
            relatorio->Construir(*banco, IE, numero);
            const Conteudo& c = relatorio->Documento();
            EXPECT_EQ(c.paginas, std::vector<Pagina>(1)) << relatorio->Identidade().classe;
            EXPECT_FALSE(c.titulo.empty());
            EXPECT_LE(Caracteres(c.tituloResumido), 30U);
            EXPECT_EQ(c.icone, &frmFiguras::imgIconeR);
            EXPECT_EQ(c.orientacao, 0);
            EXPECT_EQ(c.margens, (Margens{2, 2, 2, 2}));
        }
    }
}

TEST(Listas, BuildingAgainGivesTheSameDocumentAndTheOtherRegimesHeader) {
    BancoDeTeste banco(DuasDeclaracoes);
    for (const auto& relatorio : Listas()) {
        relatorio->Construir(*banco, "1", 1);
        const Conteudo primeiro = relatorio->Documento();
        relatorio->Construir(*banco, "1", 2);
        EXPECT_THAT(
            Textos(relatorio->Documento(), 0),
            testing::IsSupersetOf({"DRQ Não Consistida", "Substitutiva", "RES", "01 a 12/2001"}))
            << relatorio->Identidade().classe;
        relatorio->Construir(*banco, "1", 1);
        EXPECT_EQ(relatorio->Documento(), primeiro) << relatorio->Identidade().classe;
    }
}

}  // namespace
}  // namespace tarvo::apoio
