#include "reports/RelatorioRegExportacao.h"

#include "tests/reports/PaginaEsperada.h"

namespace tarvo::apoio {
namespace {

using testing::ElementsAreArray;

Lista Cabecalho() {
    return CabecalhoEsperado("Registros de Exportação") +
           Celula({0, 5.9, 17, 0.6}, TituloDeColuna, "Registro de Exportação");
}

// A page's registrations, primeira to ultima.
Lista Registros(int primeira, int ultima) {
    Lista registros;
    for (int i = 0; i <= ultima - primeira; ++i) {
        char re[16];
        std::snprintf(re, sizeof re, "RE%04d", primeira + i);
        registros = registros +
                    Celula({3.4 * (i / 30), 6.5 + 0.6 * (i % 30), 3.4, 0.6}, {"T CM Arial 8"}, re);
    }
    return registros;
}

TEST(RelatorioRegExportacao, RunsDownFiveColumnsOf30AndThenToTheNextPage) {
    BancoDeTeste banco(DuasDeclaracoes);
    RelatorioRegExportacao relatorio;
    for (const int quantos : {30, 31, 150, 151}) {
        // Added backwards, printed in order.
        banco.Executar("delete from tblRegistroExportação;" +
                       Repetir(quantos,
                               "insert into tblRegistroExportação (NroDRQ, RE) select 1, "
                               "printf('RE%04d', i) from n order by i desc"));
        relatorio.Construir(*banco, "1", 1);
        const Conteudo& c = relatorio.Documento();
        ASSERT_EQ(c.paginas.size(), quantos == 151 ? 2U : 1U);
        EXPECT_THAT(Curtas(c, 0),
                    ElementsAreArray(Cabecalho() + Registros(1, std::min(quantos, 150)) +
                                     RodapeEsperado()));
        if (quantos == 151) {
            EXPECT_THAT(Curtas(c, 1),
                        ElementsAreArray(Cabecalho() + Registros(151, 151) + RodapeEsperado()));
        }
    }
}

TEST(RelatorioRegExportacao, ANullRegistrationIsAnEmptyCellAndNoneIsAnEmptyList) {
    BancoDeTeste banco(DuasDeclaracoes);
    banco.Executar("insert into tblRegistroExportação (NroDRQ) values (1);");
    RelatorioRegExportacao relatorio;
    relatorio.Construir(*banco, "1", 1);
    EXPECT_THAT(Curtas(relatorio.Documento(), 0),
                ElementsAreArray(Cabecalho() + Celula({0, 6.5, 3.4, 0.6}, {"T CM Arial 8"}, "") +
                                 RodapeEsperado()));
    relatorio.Construir(*banco, "1", 2);
    EXPECT_EQ(LinhasDesde(5.8, relatorio.Documento(), 0), Lista{"5.90: Registro de Exportação"});
}

}  // namespace
}  // namespace tarvo::apoio
