// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "tests/output/pdf/ApoioPDF.h"

namespace tarvo {
namespace {

namespace fs = std::filesystem;

class Gravacao : public testing::Test {
  protected:
    Gravacao() { std::ofstream(arquivo) << "antigo"; }
    void EsperarErroETudoComoAntes(NumeroErro numero) {
        EXPECT_EQ(apoio::ErroDe([&] { GravarPDF(documento, arquivo); }).Numero(), numero);
        EXPECT_EQ(apoio::BytesDe(arquivo), "antigo");
        EXPECT_EQ(Entradas(pasta.Caminho()), 1);
    }

    const apoio::PastaTemporaria pasta;
    fs::path arquivo = pasta / "saida.pdf";
    Conteudo documento = Textos({{{0, 0, 5, 1}, "novo"}});
};

TEST_F(Gravacao, TheNewFileTakesTheOldOnesPlace) {
    GravarPDF(documento, arquivo);
    EXPECT_EQ(apoio::BytesDe(arquivo).substr(0, 5), "%PDF-");
    EXPECT_EQ(Entradas(pasta.Caminho()), 1);
}

TEST_F(Gravacao, AFullDiskLeavesTheOldFileWhole) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit antes{};
    ::getrlimit(RLIMIT_FSIZE, &antes);
    const rlimit limite{1000, antes.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limite);
    EsperarErroETudoComoAntes(NumeroErro::DiscoCheio);
    ::setrlimit(RLIMIT_FSIZE, &antes);
}

TEST_F(Gravacao, AFailureOfTheRenderingLeavesTheOldFileWhole) {
    documento = Paginas(2000, [](DocumentoRelatorio& doc, int pagina) {
        const char* const fonte = pagina == 1999 ? "Fonte Inexistente" : "Arial";
        Escrever(doc, {{0, 0, 5, 1}, std::to_string(pagina), {.fonte = fonte}});
    });
    EsperarErroETudoComoAntes(NumeroErro::FonteAusente);
}

}  // namespace
}  // namespace tarvo
