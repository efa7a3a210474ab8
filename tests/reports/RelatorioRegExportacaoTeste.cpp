// SPDX-License-Identifier: MIT
#include "reports/RelatorioRegExportacao.h"

#include "tests/reports/PaginaEsperada.h"

namespace tarvo::apoio {
namespace {

// A page with that many registrations, from the given one on.
Lista PaginaDe(int quantos, int primeiro) {
    Lista pagina = CabecalhoEsperado("Registros de Exportação") +
                   Celula({0, 5.9, 17, 0.6}, TituloDeColuna, "Registro de Exportação");
    for (int i = 0; i < quantos; ++i) {
        const std::string re = "RE" + std::to_string(1000 + primeiro + i);
        const int coluna = i / 30;
        const int linha = i % 30;
        pagina = pagina + Celula({3.4 * coluna, 6.5 + 0.6 * linha, 3.4, 0.6}, {"T CM Arial 8"}, re);
    }
    return pagina + RodapeEsperado();
}

TEST(RelatorioRegExportacao, RunsDownFiveColumnsOf30AndThenToTheNextPage) {
    BancoDeTeste banco(DuasDeclaracoes);
    for (const int quantos : {0, 30, 31, 150, 151}) {
        // Added backwards, printed in order.
        banco.Executar("delete from tblRegistroExportação;" +
                       Repetir(151,
                               "insert into tblRegistroExportação (NroDRQ, RE) select 1, 'RE' || "
                               "(1000 + i) from n where i <= " +
                                   std::to_string(quantos) + " order by i desc"));
        const Conteudo c = Construir<RelatorioRegExportacao>(banco);
        ASSERT_EQ(c.paginas.size(), quantos == 151 ? 2U : 1U);
        ConferirPagina(c, PaginaDe(std::min(quantos, 150), 1));
        if (quantos == 151) {
            ConferirPagina(c, PaginaDe(1, 151), 1);
        }
    }
}

TEST(RelatorioRegExportacao, ANullRegistrationIsAnEmptyCell) {
    BancoDeTeste banco(DuasDeclaracoes);
    banco.Executar("insert into tblRegistroExportação (NroDRQ) values (1);");
    EXPECT_THAT(LinhasDesde(5.8, Construir<RelatorioRegExportacao>(banco), 0),
                testing::ElementsAre("5.90: Registro de Exportação", "6.50: "));
}

}  // namespace
}  // namespace tarvo::apoio
