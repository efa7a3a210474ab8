// SPDX-License-Identifier: MIT
#include <set>

#include "tests/host/Programa.h"

namespace tarvo::host {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

TEST(Comandos, WrongUsageIsToldInPortugueseWithStatus2) {
    // Arguments, and what the message names.
    const std::pair<std::string, const char*> casos[] = {
        {"exportar b --relatorios 01 --formato pdf --saida s", "--ie"},
        {"exportar b --ie 1 --relatorios 10 --formato pdf --saida s", "--drq"},
        {"exportar b --ie 1 --drq x --relatorios 10 --formato pdf --saida s", "--drq"},
        {"exportar b --relatorios 18 --formato pdf --saida s", "\"18\""},
        {"exportar b --relatorios VELO --formato doc --saida s", "doc"},
        {"exportar b --relatorios VELO --formato pdf", "--saida"},
        {"exportar b --relatorios VELO --formato pdf --saida s --ref-atual 13/2003", "13/2003"},
        {"exportar b --relatorios VELO --formato pdf --saida s --ref-atual 01/0000", "01/0000"},
        {"exportar b --ie", "--ie pede um valor"},
        {"exportar b --ie '' --drq 1 --relatorios 10 --formato pdf --saida s",
         "--ie pede um valor"},
        {"exportar b --ie= --drq 1 --relatorios 10 --formato pdf --saida s", "--ie= não tem valor"},
        {"exportar b --ie --drq 1 --relatorios 10 --formato pdf --saida s", "--ie pede um valor"},
        {"exportar b --ie 1 --drq 0 --relatorios 10 --formato pdf --saida s", "inteiro de 1 a"},
        {"exportar b --ie 1 --drq -5 --relatorios 10 --formato pdf --saida s", "não \"-5\""},
        {"exportar b --relatorios VELO, --formato pdf --saida s", "não conhece \"\""},
        {"exportar b --ie 1 --relatorios 01,VELO --formato pdf --saida -", "um só relatório"},
        {"exportar b --relatorios VELO --formato png --saida -", "não se faz em png"},
        {"exportar b --relatorios VELO --formato pdf --json --saida -", "--json"},
        {"exportar b --formto=pdf --ie", "\"--formto\"; a mais parecida é --formato"},
        {"exportr b --ie", "\"exportr\"; o mais parecido é exportar"},
        {"lsitar", "\"lsitar\"; o mais parecido é listar"},
        {"--versoa", "\"--versoa\"; a mais parecida é --versao"},
        {"--versao b", "não esperado: b"},
        {"''", "falta BANCO"},
        {"ref-atual 2003-01", "2003-01"},
        {"lote b", "--saida"},
        {"lote b --saida s --unico --formato png", "--unico"},
        {"lote b --saida s --de 02/2003 --ate 01/2003", "--de"},
        {"lote b --saida s --trabalhos 0", "--trabalhos"},
        {"lote b --saida s --ie 1 --ie 2", "--ie só pode"},
        {"lote b --saida -", "numa pasta"},
        {"lote b --saida s --ie ''", "--ie pede um valor"},
        {"listar ''", "BANCO"},
        {"criar", "BANCO"},
        {"criar b --nada", "--nada"},
        {"criar b listar b", "não esperado: listar"},
        {"listar -- -a -b", "não esperado: -b"},
        {"criar b --exemplo=2", "--exemplo não tem valor"},
        {"criarr b", "criarr"}};
    const std::set<std::string> comandos{"criar", "listar", "exportar", "lote", "ref-atual"};
    for (const auto& [argumentos, motivo] : casos) {
        const Execucao e = Rodar(argumentos);
        EXPECT_THAT(e, Termina(2, AllOf(StartsWith("uso incorreto: "), HasSubstr(motivo))));
        const std::string comando = argumentos.substr(0, argumentos.find(' '));
        EXPECT_THAT(e.erros,
                    HasSubstr("\n  Veja relatorios-tarvo " +
                              (comandos.contains(comando) ? comando + " " : "") + "--ajuda\n"));
        EXPECT_EQ(e.saida, "");
    }
}

TEST(Comandos, HelpIsPortugueseAndNamesEveryCommand) {
    std::string ajuda = Rodar("--ajuda").saida;
    EXPECT_EQ(Rodar("").saida, ajuda);
    EXPECT_THAT(Rodar("--ajuda >/dev/full"), Termina(1, StartsWith("erro 57: ")));
    EXPECT_EQ(Rodar("--versao").saida, Rodar("--version").saida);
    EXPECT_THAT(Rodar("--versao").saida, MatchesRegex("relatorios-tarvo [0-9.]+\n"));
    for (const std::string comando :
         {"criar", "listar", "exportar", "lote", "selecionar", "imprimir", "velo", "ref-atual"}) {
        EXPECT_THAT(ajuda, HasSubstr("\n  " + comando));
        const Execucao e = Rodar(comando + " --ajuda");
        EXPECT_EQ(e.situacao, 0);
        EXPECT_THAT(e.saida, HasSubstr("Uso: relatorios-tarvo " + comando + " "));
        ajuda += e.saida;
    }
    for (const char* ingles : {"Usage", "Option", "Positional", "OPTIONS", "ommand", "REQUIRED",
                               "TEXT", "Print", "help message"}) {
        EXPECT_THAT(ajuda, Not(HasSubstr(ingles)));
    }
}

TEST(Comandos, CreatingNeverOverwritesAndWhatIsNoDeclarationDatabaseIsRefusedWithAdvice) {
    const apoio::PastaTemporaria pasta;
    const std::string banco = pasta / "a.tarvo";
    EXPECT_THAT(Rodar("listar " + banco),
                Termina(1, AllOf(StartsWith("erro 3024: "), HasSubstr("criar BANCO"))));
    ASSERT_THAT(Rodar("criar " + banco), Termina(0));
    const std::string antes = apoio::BytesDe(banco);
    EXPECT_THAT(Rodar("criar --exemplo " + banco), Termina(1, StartsWith("erro 3204: ")));
    EXPECT_EQ(apoio::BytesDe(banco), antes);
    EXPECT_THAT(Rodar("criar --exemplo " + banco + "2", ComLimite("-f 195")),
                Termina(1, StartsWith("erro ")));
    fs::resize_file(banco, 8192);
    EXPECT_THAT(Rodar("listar " + banco),
                Termina(1, AllOf(StartsWith("erro 3343: "), HasSubstr("cópia de segurança"))));
    EXPECT_THAT(Arquivos(pasta.Caminho()), ElementsAre("a.tarvo"));
}

TEST(Comandos, AMissingDatabaseIsToldBeforeAMissingScreen) {
    for (const char* argumentos : {"nada.tarvo", "-- -nada", "velo nada.tarvo --ref-atual 07/2003",
                                   "selecionar --ie=1 --drq=1 -- -nada"}) {
        EXPECT_THAT(Rodar(argumentos), Termina(1, StartsWith("erro 3024: ")));
    }
}

TEST(Comandos, TextsOfOthersCannotControlATerminal) {
    apoio::BancoDeTeste banco(
        "insert into tblContribuinte (IE, RazãoSocial) values ('1', 'A' || char(27, 7, 10, 127, "
        "0x85, 0x9b, 0x2028, 0x202e, 0x2066) || 'ção')");
    EXPECT_EQ(Rodar("listar " + banco.Arquivo().string()).saida, "1  A         ção\n");
    EXPECT_THAT(Rodar("listar '\x1b[2J\u0085\x9b/é'"),
                Termina(1, StartsWith("erro 3024: \" [2J \uFFFD/é\"")));
    EXPECT_THAT(Rodar("listar b '\x1b[2J'"), Termina(2, HasSubstr("esperado:  [2J\n")));
}

TEST(Comandos, TheListIsAlsoThereForProgramsAndWhereNobodyKnowsWhoseADeclarationIs) {
    apoio::BancoDeTeste banco(
        "insert into tblContribuinte (IE, RazãoSocial, CNPJ) values ('1', 'Órion', '2'),"
        " ('2', 'Zeta', null);"
        "insert into tblDRQ (NroDRQ, Ref1, RegTrib, Tipo, IE, Consistente) values"
        " (7, '2003-07-01', '01', 1, '1', -1), (8, '2003-08-01', '04', 2, null, 0),"
        " (9, null, null, null, '3', null);");
    const std::string listar = "listar " + banco.Arquivo().string();
    EXPECT_EQ(Rodar(listar).saida,
              "1  Órion\n  DRQ 7  07/2003  RPA  Normal\n2  Zeta\n"
              "Contribuinte não informado (informe --ie)\n"
              "  DRQ 8  08/2003  Simples-ST  Substitutiva  não consistida\n"
              "3  (contribuinte ausente do banco)\n  DRQ 9  não consistida\n");
    const auto linhas = LinhasJSON(Rodar(listar + " --json").saida);
    ASSERT_EQ(linhas.size(), 4U);
    EXPECT_EQ(linhas[0], nlohmann::json::parse(
                             R"({"ie": "1", "razaoSocial": "Órion", "cnpj": "2", "drq": 7,
             "referencia": "07/2003", "regime": "01", "tipo": "Normal", "consistente": true})"));
    EXPECT_EQ(linhas[1]["ie"], "2");
    EXPECT_TRUE(linhas[1]["drq"].is_null());
    EXPECT_EQ(linhas[2]["drq"], 8);
    EXPECT_TRUE(linhas[2]["ie"].is_null());
    banco.Executar("drop index idxtblDRQIE; alter table tblDRQ drop column IE;");
    const Execucao semColuna = Rodar(listar);
    EXPECT_THAT(semColuna, Termina(0));
    EXPECT_THAT(semColuna.saida, HasSubstr("Zeta\nContribuinte não informado"));
}

TEST(Comandos, TheReferenceMonthIsKeptPerUser) {
    const apoio::PastaTemporaria pasta;
    const std::string dele = "XDG_CONFIG_HOME=" + pasta.Caminho().string() + " exec";
    EXPECT_EQ(Rodar("ref-atual", dele).saida, "não definido\n");
    EXPECT_THAT(Rodar("ref-atual 7/2003", dele), Termina(0));
    EXPECT_EQ(Rodar("ref-atual", dele).saida, "07/2003\n");
    EXPECT_THAT(apoio::BytesDe(pasta / "Tarvo.ini"), HasSubstr("[pRef]\nRefAtual=07/2003"));
}

}  // namespace
}  // namespace tarvo::host
