// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "system/files/Arquivos.h"
#include "system/files/GravacaoSegura.h"
#include "tests/support/Apoio.h"

namespace tarvo {
namespace {

namespace fs = std::filesystem;

class Substituicao : public testing::Test {
  protected:
    Substituicao() { std::ofstream(outro) << "de outro"; }
    void EsperarRecusa() {
        EXPECT_EQ(apoio::NumeroDe([&] { GravarArquivo(arquivo, "novo"); }),
                  NumeroErro::DestinoRecusado);
    }
    // How many things are in the folder.
    [[nodiscard]] std::ptrdiff_t Entradas() const {
        return std::distance(fs::directory_iterator(pasta.Caminho()), fs::directory_iterator());
    }
    [[nodiscard]] unsigned Modo() const {
        struct stat estado {};
        EXPECT_EQ(::stat(arquivo.c_str(), &estado), 0);
        return estado.st_mode & 07777U;
    }

    const apoio::PastaTemporaria pasta;
    const fs::path arquivo = pasta / "a.pdf";
    const fs::path outro = pasta / "outro";
};

TEST_F(Substituicao, ALinkIsReplacedAndWhatItPointsToStays) {
    for (const char* alvo : {"outro", "nada", "."}) {
        fs::remove(arquivo);
        fs::create_symlink(alvo, arquivo);
        GravarArquivo(arquivo, "novo");
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(arquivo))) << alvo;
        EXPECT_EQ(apoio::BytesDe(arquivo), "novo");
    }
    EXPECT_EQ(apoio::BytesDe(outro), "de outro");
    // Only the folder of the file may be reached through one.
    fs::create_symlink(".", pasta / "atalho");
    GravarArquivo(pasta / "atalho/a.pdf", "pelo atalho");
    EXPECT_EQ(apoio::BytesDe(arquivo), "pelo atalho");
    EXPECT_EQ(Entradas(), 3) << "nothing is left of the waiting";
}

TEST_F(Substituicao, WhatIsNoRegularFileIsRefusedAndOpensNothing) {
    ASSERT_EQ(::mkfifo(arquivo.c_str(), 0666), 0);
    EsperarRecusa();
    fs::remove(arquivo);
    fs::create_directory(arquivo);
    EsperarRecusa();
    EXPECT_EQ(Entradas(), 2);
}

// Whatever its name is, and the files that stand beside a database in use.
TEST_F(Substituicao, ADatabaseIsRefused) {
    CriarBanco(pasta / "b.tarvo");
    const auto banco = BancoSQLite::Abrir(pasta / "b.tarvo");
    banco->ExecutarScript("insert into tblEstados values ('1', 'AC', 'Acre')");
    for (const char* parte : {"b.tarvo", "b.tarvo-wal", "b.tarvo-shm"}) {
        const std::string antes = apoio::BytesDe(pasta / parte);
        fs::remove(arquivo);
        fs::create_hard_link(pasta / parte, arquivo);
        EsperarRecusa();
        EXPECT_EQ(apoio::BytesDe(arquivo), antes) << parte;
    }
    // One that appears while the file is being written.
    fs::remove(arquivo);
    GravacaoSegura gravacao(arquivo);
    fs::copy_file(pasta / "b.tarvo", arquivo);
    EXPECT_EQ(apoio::NumeroDe([&] { gravacao.Confirmar(); }), NumeroErro::DestinoRecusado);
}

TEST_F(Substituicao, OnlyTheOwnersNinePermissionBitsAreKept) {
    const mode_t antes = ::umask(027);
    GravarArquivo(arquivo, "novo");
    EXPECT_EQ(Modo(), 0640U);
    ASSERT_EQ(::chmod(arquivo.c_str(), 07604), 0);
    GravarArquivo(arquivo, "novo");
    EXPECT_EQ(Modo(), 0604U);
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(arquivo.c_str(), 65534, 65534), 0);
        ASSERT_EQ(::chmod(arquivo.c_str(), 06777), 0);
        GravarArquivo(arquivo, "novo");
        EXPECT_EQ(Modo(), 0640U) << "another user's file";
    }
    ::umask(antes);
}

TEST_F(Substituicao, ErrorsSayWhatIsInTheWay) {
    fs::create_symlink("laço", pasta / "laço");
    const struct {
        fs::path pasta;
        NumeroErro numero;
        const char* motivo;
    } casos[] = {
        {pasta / "laço", NumeroErro::CaminhoNaoEncontrado, "laço."},
        {outro, NumeroErro::DestinoRecusado, "não é uma pasta."},
        {outro / "x", NumeroErro::CaminhoNaoEncontrado, "não é uma pasta."},
    };
    for (const auto& caso : casos) {
        const Erro erro = apoio::ErroDe([&] { CriarPasta(caso.pasta); });
        EXPECT_EQ(erro.Numero(), caso.numero) << caso.pasta;
        EXPECT_THAT(erro.Descricao(), testing::EndsWith(caso.motivo));
    }
    rlimit limite{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limite), 0);
    const rlimit nenhum{0, limite.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &nenhum), 0);
    const auto numeros = {apoio::NumeroDe([&] { GravarArquivo(arquivo, "novo"); }),
                          apoio::NumeroDe([&] { (void)LerArquivo(outro); })};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limite), 0);
    EXPECT_THAT(numeros, testing::Each(NumeroErro::ArquivosDemais));
}

// A file system that knows no files without a name takes the same way.
TEST_F(Substituicao, AFolderOfItsOwnHoldsWhatWaitsAndGoesWithIt) {
    const auto espera = PastaDeEspera::Nova(pasta.Caminho());
    EXPECT_TRUE(PastaDeEspera::EhNomeDeEspera(espera->Caminho().filename().string()));
    for (const char* nome :
         {".tarvo-1-0.tmp", ".tarvo-../../../../../..", ".tarvo-0123456789ABCDEF"}) {
        EXPECT_FALSE(PastaDeEspera::EhNomeDeEspera(nome)) << nome;
    }
    std::ofstream(arquivo) << "antigo";
    GravacaoSegura gravacao(arquivo, espera->Caminho());
    gravacao.Escrever("novo");
    gravacao.Confirmar();
    EXPECT_EQ(apoio::BytesDe(arquivo), "novo");
    EXPECT_TRUE(fs::is_empty(espera->Caminho()));
    std::ofstream(espera->Caminho() / "resto") << "de um processo morto";
    EXPECT_TRUE(fs::is_empty(PastaDeEspera::Retomada(espera->Caminho())->Caminho()));
    EXPECT_FALSE(fs::exists(espera->Caminho()));
}

}  // namespace
}  // namespace tarvo
