// SPDX-License-Identifier: MIT
#include "system/settings/ConfiguracoesIni.h"

#include <sys/stat.h>

#include <cstdlib>
#include <fstream>
#include <thread>

#include "tests/support/Apoio.h"

namespace tarvo {
namespace {

using apoio::NumeroDe;

class ConfiguracoesIniTeste : public testing::Test {
  protected:
    void Escrever(std::string_view texto) const {
        std::ofstream(Arquivo(), std::ios::binary) << texto;
    }
    [[nodiscard]] std::string Conteudo() const { return apoio::BytesDe(Arquivo()); }
    [[nodiscard]] std::filesystem::path Arquivo() const { return pasta / "Tarvo.ini"; }
    [[nodiscard]] std::string RefAtual() const {
        return ConfiguracoesIni(pasta).Ler("Tarvo", "pRef", "RefAtual", "(padrão)");
    }

    apoio::PastaTemporaria temporaria;
    const std::filesystem::path& pasta = temporaria.Caminho();
};

TEST_F(ConfiguracoesIniTeste, ReadsWhatHandsAndOtherProgramsWrite) {
    EXPECT_EQ(RefAtual(), "(padrão)");
    const std::pair<const char*, const char*> casos[] = {
        {"[pRef]\nRefAtual=03/2003\n", "03/2003"},
        {"\xEF\xBB\xBF[PREF]\r\n refatual = 03/2003 \r\n", "03/2003"},
        {"RefAtual=1\n[outra]\nRefAtual=2\n[pRef]\n; RefAtual=3\n#RefAtual=4\nRefAtual=5", "5"},
        {"[pRef]\nRefAtual=\" a=b \"\n", " a=b "},
        {"[pRef]\nRefAtual=\n", ""},
        {"[pRef]\nRefAtualizado=9\n[fim]\nRefAtual=8\n", "(padrão)"},
        {"[pRef]\na=1\n[x]\n[pRef]\nRefAtual=7\n", "7"},
    };
    for (const auto& [texto, valor] : casos) {
        Escrever(texto);
        EXPECT_EQ(RefAtual(), valor) << texto;
    }
}

TEST_F(ConfiguracoesIniTeste, SettingAKeyLeavesEverythingElseAsItStands) {
    ConfiguracoesIni configuracoes(pasta);
    Escrever("; meu\n[pRef]\nOutra = 1\nrefatual=01/2001 \n\n[fim]\nx=y");
    configuracoes.Gravar("Tarvo", "pRef", "RefAtual", "02/2002");
    EXPECT_EQ(Conteudo(), "; meu\n[pRef]\nOutra = 1\nRefAtual=02/2002\n\n[fim]\nx=y\n");
    configuracoes.Gravar("Tarvo", "PREF", "Nova", "ção");
    configuracoes.Gravar("Tarvo", "Janela", "Zoom", " 1 ");
    EXPECT_EQ(Conteudo(),
              "; meu\n[pRef]\nOutra = 1\nRefAtual=02/2002\nNova=ção\n\n[fim]\nx=y\n"
              "[Janela]\nZoom=\" 1 \"\n");
    Escrever("[pRef]\r\nRefAtual=1\r\n");
    configuracoes.Gravar("Tarvo", "pRef", "RefAtual", "2");
    EXPECT_EQ(Conteudo(), "[pRef]\r\nRefAtual=2\r\n");
}

TEST_F(ConfiguracoesIniTeste, MakesFolderAndFileAndKeepsLinksAndPermissions) {
    ConfiguracoesIni nova(pasta / "a" / "b");
    nova.Gravar("Tarvo", "pRef", "RefAtual", "1");
    EXPECT_EQ(nova.Ler("Tarvo", "pRef", "RefAtual", ""), "1");

    std::ofstream(pasta / "real.ini") << "[pRef]\n";
    std::filesystem::permissions(pasta / "real.ini", std::filesystem::perms{0640});
    std::filesystem::create_symlink(pasta / "real.ini", Arquivo());
    ConfiguracoesIni(pasta).Gravar("Tarvo", "pRef", "RefAtual", "2");
    EXPECT_TRUE(std::filesystem::is_symlink(Arquivo()));
    EXPECT_EQ(RefAtual(), "2");
    EXPECT_EQ(std::filesystem::status(pasta / "real.ini").permissions(),
              std::filesystem::perms{0640});
}

TEST_F(ConfiguracoesIniTeste, RefusesWhatALineCannotHoldAndFoldersThatAreNone) {
    ConfiguracoesIni configuracoes(pasta);
    Escrever("[pRef]\nRefAtual=1\n");
    for (const auto& linha : {std::pair{"RefAtual", "1\n[x]"}, {"a=b", "1"}}) {
        EXPECT_EQ(
            NumeroDe([&] { configuracoes.Gravar("Tarvo", "pRef", linha.first, linha.second); }),
            NumeroErro::ChamadaInvalida);
    }
    EXPECT_EQ(Conteudo(), "[pRef]\nRefAtual=1\n");
    EXPECT_EQ(NumeroDe([&] { ConfiguracoesIni(Arquivo()).Gravar("Tarvo", "a", "b", "c"); }),
              NumeroErro::DestinoRecusado);
    std::filesystem::create_directory(pasta / "Outra.ini");
    ASSERT_EQ(::mkfifo((pasta / "Cano.ini").c_str(), 0600), 0);
    for (const char* nome : {"Outra", "Cano"}) {
        EXPECT_EQ(NumeroDe([&] { static_cast<void>(configuracoes.Ler(nome, "a", "b", "")); }),
                  NumeroErro::DestinoRecusado)
            << nome;
    }
}

TEST_F(ConfiguracoesIniTeste, TwoWritersAtOnceLoseNoKey) {
    const auto gravar = [this](const std::string& secao) {
        ConfiguracoesIni configuracoes(pasta);
        for (int i = 0; i < 20; ++i) {
            configuracoes.Gravar("Tarvo", secao, "k" + std::to_string(i), "v");
        }
    };
    std::thread outro(gravar, "a");
    gravar("b");
    outro.join();
    const auto texto = Conteudo();
    EXPECT_EQ(std::count(texto.begin(), texto.end(), '='), 40);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(pasta), {}), 1);
}

TEST_F(ConfiguracoesIniTeste, TheUsersFolderFollowsXdgAndIgnoresRelativePaths) {
    setenv("XDG_CONFIG_HOME", "/um/lugar", 1);
    EXPECT_EQ(ConfiguracoesIni::PastaDoUsuario(), "/um/lugar");
    setenv("HOME", "/casa", 1);
    setenv("XDG_CONFIG_HOME", "relativo", 1);
    EXPECT_EQ(ConfiguracoesIni::PastaDoUsuario(), "/casa/.config");
    unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(ConfiguracoesIni::PastaDoUsuario(), "/casa/.config");
}

}  // namespace
}  // namespace tarvo
