#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

#include "data/CodigosDeErros.h"
#include "tests/pdf/ApoioPDF.h"

namespace tarvo {
namespace {

namespace fs = std::filesystem;

Conteudo Simples() {
    return Documento([](DocumentoRelatorio& doc) { Escrever(doc, {0, 0, 5, 1}, "novo"); });
}

// The error number with which writing ends in a process of its own, prepared by the caller.
int NumeroEmOutroProcesso(const fs::path& arquivo, const std::function<void()>& preparar) {
    const Conteudo conteudo = Simples();
    const pid_t filho = ::fork();
    if (filho == 0) {
        preparar();
        try {
            GravarPDF(conteudo, arquivo);
        } catch (const Erro& erro) {
            std::_Exit(static_cast<int>(erro.Numero()));
        } catch (...) {
            std::_Exit(255);
        }
        std::_Exit(0);
    }
    int estado = 0;
    ::waitpid(filho, &estado, 0);
    return WIFEXITED(estado) ? WEXITSTATUS(estado) : -1;
}

class Gravacao : public testing::Test {
  protected:
    void SetUp() override { std::ofstream(arquivo) << "antigo"; }
    // The old file is whole and nothing else lies beside it.
    void EsperarTudoComoAntes() const {
        EXPECT_EQ(Conteudos(arquivo), "antigo");
        const auto entradas = fs::directory_iterator(pasta.Caminho());
        EXPECT_EQ(std::distance(begin(entradas), end(entradas)), 1);
    }

    const apoio::PastaTemporaria pasta;
    const fs::path arquivo = pasta / "saida.pdf";
};

TEST_F(Gravacao, TheNewFileTakesTheOldOnesPlace) {
    GravarPDF(Simples(), arquivo);
    EXPECT_EQ(Conteudos(arquivo).substr(0, 5), "%PDF-");
    EXPECT_EQ(std::distance(fs::directory_iterator(pasta.Caminho()), fs::directory_iterator()), 1);
}

TEST_F(Gravacao, AFullDiskLeavesTheOldFileWhole) {
    const int numero = NumeroEmOutroProcesso(arquivo, [] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limite{1000, 1000};
        ::setrlimit(RLIMIT_FSIZE, &limite);
    });
    EXPECT_EQ(numero, static_cast<int>(NumeroErro::DiscoCheio));
    EsperarTudoComoAntes();
}

TEST_F(Gravacao, AFolderWithoutPermissionIsRefused) {
    fs::permissions(pasta.Caminho(), fs::perms::owner_read | fs::perms::owner_exec |
                                         fs::perms::others_read | fs::perms::others_exec);
    const int numero = NumeroEmOutroProcesso(arquivo, [] {
        // The superuser may write anywhere.
        if (::geteuid() == 0 && ::setuid(65534) != 0) {
            std::_Exit(254);
        }
    });
    fs::permissions(pasta.Caminho(), fs::perms::owner_all);
    EXPECT_EQ(numero, static_cast<int>(NumeroErro::PermissaoNegada));
    EsperarTudoComoAntes();
}

TEST_F(Gravacao, AFailureOfTheRenderingLeavesTheOldFileWhole) {
    const Conteudo semFonte = Documento([](DocumentoRelatorio& doc) {
        for (int i = 0; i < 2000; ++i) {
            Escrever(doc, {0, 0, 5, 1}, std::to_string(i));
            doc.NovaPagina();
        }
        Escrever(doc, {0, 0, 5, 1}, "x", {.fonte = "Fonte Inexistente"});
    });
    EXPECT_EQ(apoio::ErroDe([&] { GravarPDF(semFonte, arquivo); }).Numero(),
              NumeroErro::FonteAusente);
    EsperarTudoComoAntes();
}

TEST_F(Gravacao, AFolderThatDoesNotExistIsNamed) {
    const fs::path longe = pasta / "nenhuma";
    const Erro erro = apoio::ErroDe([&] { GravarPDF(Simples(), longe / "a.pdf"); });
    EXPECT_EQ(erro.Numero(), NumeroErro::CaminhoNaoEncontrado);
    EXPECT_THAT(erro.Descricao(), testing::HasSubstr("nenhuma"));
}

}  // namespace
}  // namespace tarvo
