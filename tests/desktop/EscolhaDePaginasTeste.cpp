// SPDX-License-Identifier: MIT
#include "desktop/printing/EscolhaDePaginas.h"

#include <gmock/gmock.h>

#include <fstream>

#include "desktop/preview/DocumentoPronto.h"
#include "tests/desktop/Previas.h"

namespace tarvo {
namespace {

using testing::ElementsAre;
using testing::Eq;
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

TEST(EscolhaDePaginas, TheChosenPagesKeepWhatTheyShowedAndTheirOrder) {
    DocumentoRelatorio documento;
    apoio::MontarTabela(documento, 5);
    const auto inteiro = Preparar(documento.Registrado());
    const apoio::PastaTemporaria pasta;
    const auto arquivo = pasta / "paginas.pdf";
    std::ofstream(arquivo, std::ios::binary) << EscolherPaginas(*inteiro.pdf, {4, 2});
    const auto texto = apoio::SaidaDe("pdftotext '" + arquivo.string() + "' - | grep '^Página'");
    EXPECT_EQ(texto, "Página 4 de 5\nPágina 2 de 5\n");
    EXPECT_EQ(apoio::SaidaDe("qpdf --check '" + arquivo.string() + "' 2>&1 | grep -c 'No syntax'"),
              "1\n");
}

}  // namespace
}  // namespace tarvo
