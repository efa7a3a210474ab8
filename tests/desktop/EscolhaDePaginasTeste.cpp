// SPDX-License-Identifier: MIT
#include "desktop/printing/EscolhaDePaginas.h"

#include <gmock/gmock.h>

#include <fstream>

#include "desktop/preview/DocumentoPronto.h"
#include "desktop/printing/RecorteDoPDF.h"
#include "document/QuadroPagina.h"
#include "tests/desktop/Previas.h"
#include "tests/support/MarcasDoPDF.h"

namespace tarvo {
namespace {

using testing::ElementsAre;
using testing::Eq;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Optional;

TEST(EscolhaDePaginas, AListNamesPagesRangesAndOpenEndsInItsOrder) {
    EXPECT_THAT(LerPaginas("", 3), Optional(ElementsAre(1, 2, 3)));
    EXPECT_THAT(LerPaginas(" 4, 1-2 ;5 - ", 6), Optional(ElementsAre(4, 1, 2, 5, 6)));
    EXPECT_THAT(LerPaginas("-2", 3), Optional(ElementsAre(1, 2)));
    for (const char* errada :
         {"0", "4", "1-4", "3-1", "1,", "a", "1 2", "1--2", ",", "99999999999"}) {
        EXPECT_THAT(LerPaginas(errada, 3), Eq(std::nullopt)) << errada;
    }
}

TEST(EscolhaDePaginas, OddAndEvenGoByThePagesNumberAndReverseComesLast) {
    EXPECT_THAT(Filtrar({5, 4, 1, 2}, Folhas::Impares, false), ElementsAre(5, 1));
    EXPECT_THAT(Filtrar({1, 2, 3, 4}, Folhas::Pares, true), ElementsAre(4, 2));
}

// Four pages: a title on the first, a section on each, a table that goes on over all of them.
void MontarSecoes(DocumentoRelatorio& documento) {
    documento.Iniciar();
    std::uint32_t tabela = 0;
    const auto escrever = [&](const Elemento& elemento, double y, const std::string& texto) {
        const Trecho trecho(documento, elemento);
        EscreverEmCaixa(documento, {}, 0, y, 8, 0.5, texto);
    };
    for (int pagina = 1; pagina <= 4; ++pagina) {
        const std::string numero = std::to_string(pagina);
        if (pagina == 1) {
            escrever({.tipo = TipoElemento::Titulo}, 0, "Apuração");
            const Trecho toda(documento, {.tipo = TipoElemento::Tabela});
            tabela = toda.Indice();
        } else {
            documento.NovaPagina();
        }
        escrever({.tipo = TipoElemento::Secao}, 1, "Seção " + numero);
        const Trecho parte(documento, tabela);
        const Trecho linha(documento, LinhaDe(FuncaoDaLinha::Dados));
        escrever(TituloDeLinha(), 2, "Linha " + numero);
        escrever(CelulaDe(Natureza::Quantia), 3, "");
        escrever(CelulaDe(Natureza::Quantia), 4, numero + ",00");
    }
}

TEST(EscolhaDePaginas, TheChosenPagesKeepWhatTheyShowAndWhatIsTrueOfThem) {
    DocumentoRelatorio documento;
    MontarSecoes(documento);
    documento.DefinirTitulo("Apuração");
    const auto inteiro = Preparar(documento.Registrado());
    const apoio::PastaTemporaria pasta;
    const auto arquivo = pasta / "paginas.pdf";
    const auto dito = [&](const std::string& comando, const std::string& depois) {
        return apoio::SaidaDe(comando + " '" + arquivo.string() + "' " + depois);
    };
    const auto escolher = [&](const std::vector<int>& paginas) {
        std::ofstream(arquivo, std::ios::binary) << EscolherPaginas(*inteiro.pdf, paginas);
        EXPECT_EQ(dito("qpdf --check", "2>&1 | grep -c 'No syntax'"), "1\n");
        EXPECT_EQ(dito("pdfinfo", "| grep -cE '^Title: *Apuração$|version: *1.7$'"), "2\n");
        return dito("pdftotext -nopgbrk", "- | grep Seção | uniq -c | sed 's/^ *//'");
    };
    const auto marcadores = [&] {
        return dito("qpdf --json=2 --json-key=outlines",
                    "| sed -n 's/^.*from1.: \\(.\\).*$/\\1/p; s/^.*title.: .\\(.*\\).$/\\1/p'");
    };
    EXPECT_EQ(escolher({4, 2}), "1 Seção 4\n1 Seção 2\n");
    EXPECT_THAT(apoio::FaltasDasMarcas(arquivo), IsEmpty());
    EXPECT_EQ(marcadores(), "2\nSeção 2\n1\nSeção 4\n");
    EXPECT_EQ(escolher({2, 1, 2}), "1 Seção 2\n1 Seção 1\n1 Seção 2\n");
    EXPECT_THAT(apoio::FaltasDasMarcas(arquivo), IsEmpty());
    // For paper alone.
    EXPECT_EQ(escolher(std::vector(501, 3)), "501 Seção 3\n");
    EXPECT_THAT(apoio::FaltasDasMarcas(arquivo), ElementsAre("no tags"));
    EXPECT_THAT(dito("pdfinfo -meta", ""), Not(HasSubstr("conformance")));
}

}  // namespace
}  // namespace tarvo
