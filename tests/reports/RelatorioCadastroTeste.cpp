// SPDX-License-Identifier: MIT
#include "reports/RelatorioCadastro.h"

#include "tests/reports/PaginaEsperada.h"

namespace tarvo::apoio {
namespace {

constexpr const char* Contribuintes = R"sql(
insert into tblContribuinte values ('1', 'Padaria São João', '00.000.000/0001-00', '2001-03-05',
    'Rua A', '10', 'fundos', 'Centro', 'Água Clara', '01000-000', 'VD', '11 5555-0000',
    '11 5555-0001', 'a@exemplo.com', 'www.exemplo.com', 'Íris', 'um' || char(13, 10) || 'dois');
insert into tblContribuinte (IE) values ('2');
)sql";

// The page with these values, in the order of the cells.
Lista PaginaDe(const Lista& valores) {
    struct CelulaEsperada {
        double y;
        double x;
        double largura;
        const char* rotulo;
    };
    Lista pagina = TopoEsperado();
    pagina.erase(pagina.begin() + 1);  // no declaration, no mark of consistency
    pagina = pagina + Celula({0, 3.1, 17, 0.7}, TituloDeQuadro, "Cadastro do Contribuinte");
    auto valor = valores.begin();
    for (const auto& [y, x, largura, rotulo] : {
             CelulaEsperada{4.2, 0, 17, "Razão Social"},
             CelulaEsperada{4.8, 0, 17 / 3.0, "Inscrição Estadual"},
             CelulaEsperada{4.8, 17 / 3.0, 17 / 3.0, "CNPJ"},
             CelulaEsperada{4.8, 34 / 3.0, 17 / 3.0, "Data do Cadastramento"},
             CelulaEsperada{5.4, 0, 8.5, "Local"},
             CelulaEsperada{5.4, 8.5, 2.125, "Número"},
             CelulaEsperada{5.4, 10.625, 6.375, "Complemento"},
             CelulaEsperada{6, 0, 8.5, "Bairro"},
             CelulaEsperada{6, 8.5, 8.5, "Município"},
             CelulaEsperada{6.6, 0, 4.25, "CEP"},
             CelulaEsperada{6.6, 4.25, 1.0625, "UF"},
             CelulaEsperada{6.6, 5.3125, 5.3125, "Telefone"},
             CelulaEsperada{6.6, 10.625, 6.375, "FAX"},
             CelulaEsperada{7.2, 0, 8.5, "e-mail"},
             CelulaEsperada{7.2, 8.5, 8.5, "Home Page"},
             CelulaEsperada{7.8, 0, 17, "Contato"},
         }) {
        pagina =
            pagina + Celula({x, y, largura, 0.6}, Rotulo, rotulo, {"T EB Arial 8", 0.2}, *valor++);
    }
    return pagina +
           Celula({0, 8.4, 17, 16.4}, Rotulo, "Observação", {"M ET Arial 8", 0.2, 0.3}, *valor) +
           RodapeEsperado();
}

TEST(RelatorioCadastro, PrintsEveryFieldInItsCellAndNullAsNothing) {
    BancoDeTeste banco(Contribuintes);
    RelatorioCadastro relatorio;
    relatorio.Construir(*banco, "1");
    const Conteudo& c = relatorio.Documento();
    EXPECT_EQ(c.titulo, "Relatório de Cadastro do Contribuinte");
    EXPECT_EQ(c.tituloResumido, "Cadastro do Contribuinte");
    EXPECT_EQ(c.margens, (Margens{2, 2, 2, 2}));
    ConferirPagina(
        c, PaginaDe({"Padaria São João", "1", "00.000.000/0001-00", "05/03/2001", "Rua A", "10",
                     "fundos", "Centro", "Água Clara", "01000-000", "VD", "11 5555-0000",
                     "11 5555-0001", "a@exemplo.com", "www.exemplo.com", "Íris", "um\r\ndois"}));
    relatorio.Construir(*banco, "2");
    Lista nulos(17);
    nulos[1] = "2";
    ConferirPagina(relatorio.Documento(), PaginaDe(nulos));
}

TEST(RelatorioCadastro, AnUnknownTaxpayerGivesOneEmptyPageAndRebuildingStartsAnew) {
    BancoDeTeste banco(Contribuintes);
    RelatorioCadastro relatorio;
    relatorio.Construir(*banco, "1");
    const Conteudo primeira = relatorio.Documento();
    relatorio.Construir(*banco, "' or '1'='1");
    EXPECT_EQ(relatorio.Documento().paginas, std::vector<Pagina>(1));
    relatorio.Construir(*banco, "1");
    EXPECT_EQ(relatorio.Documento(), primeira);
}

TEST(RelatorioCadastro, AMissingTableEndsTheBuildWithItsNumber) {
    BancoDeTeste banco("drop table tblContribuinte;");
    EXPECT_EQ(ErroDe([&] { Construir<RelatorioCadastro>(banco); }).Numero(),
              NumeroErro::TabelaInexistente);
}

}  // namespace
}  // namespace tarvo::apoio
