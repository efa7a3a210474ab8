#include <algorithm>

#include "tests/host/Programa.h"

namespace tarvo::host {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(Comandos, WrongUsageIsToldInPortugueseWithStatus2) {
    // Arguments with one blank between them, and what the message names.
    const std::pair<std::string_view, const char*> casos[] = {
        {"exportar b --relatorios 01 --formato pdf --saida s", "--ie"},
        {"exportar b --ie 1 --relatorios 10 --formato pdf --saida s", "--drq"},
        {"exportar b --ie 1 --drq x --relatorios 10 --formato pdf --saida s", "--drq"},
        {"exportar b --relatorios 18 --formato pdf --saida s", "\"18\""},
        {"exportar b --relatorios VELO --formato doc --saida s", "doc"},
        {"exportar b --relatorios VELO --formato pdf", "--saida"},
        {"exportar b --relatorios VELO --formato pdf --saida s --ref-atual 13/2003", "13/2003"},
        {"exportar b --relatorios VELO --formato pdf --saida s --ref-atual 01/0000", "01/0000"},
        {"exportar b --ie", "--ie pede um valor"},
        {"ref-atual 2003-01", "2003-01"},
        {"lote b", "--saida"},
        {"lote b --saida s --unico --formato png", "--unico"},
        {"lote b --saida s --de 02/2003 --ate 01/2003", "--de"},
        {"lote b --saida s --trabalhos 0", "--trabalhos"},
        {"lote b --saida s --ie 1 --ie 2", "--ie só pode"},
        {"listar ", "BANCO"},
        {"criar", "BANCO"},
        {"criar b --nada", "--nada"},
        {"criar b listar b", "não esperado: listar"},
        {"criar b --exemplo=2", "--exemplo não tem valor"},
        {"criarr b", "criarr"}};
    for (const auto& [linha, motivo] : casos) {
        std::vector<std::string> argumentos;
        for (std::size_t inicio = 0; inicio <= linha.size();) {
            const auto fim = std::min(linha.find(' ', inicio), linha.size());
            argumentos.emplace_back(linha.substr(inicio, fim - inicio));
            inicio = fim + 1;
        }
        const Execucao e = Rodar(argumentos);
        EXPECT_THAT(e, Termina(2, AllOf(StartsWith("uso incorreto: "), HasSubstr(motivo))));
        EXPECT_EQ(e.saida, "");
    }
}

TEST(Comandos, HelpIsPortugueseAndNamesEveryCommand) {
    std::string ajuda = Rodar({"--ajuda"}).saida;
    EXPECT_EQ(Rodar({}).saida, ajuda);
    for (const std::string comando :
         {"criar", "listar", "exportar", "lote", "selecionar", "imprimir", "velo", "ref-atual"}) {
        EXPECT_THAT(ajuda, HasSubstr("\n  " + comando));
        const Execucao e = Rodar({comando, "--ajuda"});
        EXPECT_EQ(e.situacao, 0);
        EXPECT_THAT(e.saida, HasSubstr("Uso: relatorios-tarvo " + comando + " "));
        ajuda += e.saida;
    }
    for (const char* ingles : {"Usage", "Option", "Positional", "OPTIONS", "ommand", "REQUIRED",
                               "TEXT", "Print", "help message"}) {
        EXPECT_THAT(ajuda, Not(HasSubstr(ingles)));
    }
}

TEST(Comandos, CreatingNeverOverwritesAndLeavesNothingHalfMade) {
    const apoio::PastaTemporaria pasta;
    const std::string banco = pasta / "a.tarvo";
    ASSERT_THAT(Rodar({"criar", banco}), Termina(0));
    const std::string antes = apoio::BytesDe(banco);
    EXPECT_THAT(Rodar({"criar", banco, "--exemplo"}), Termina(1, StartsWith("erro 3204: ")));
    EXPECT_EQ(apoio::BytesDe(banco), antes);
    EXPECT_THAT(Rodar({"criar", pasta / "c.tarvo", "--exemplo"}, {.limiteDeArquivo = 100'000}),
                Termina(1, StartsWith("erro ")));
    EXPECT_THAT(Arquivos(pasta.Caminho()), ElementsAre("a.tarvo"));
}

TEST(Comandos, WhatIsNoDeclarationDatabaseIsRefusedByNumberWithAdvice) {
    const apoio::PastaTemporaria pasta;
    EXPECT_THAT(Rodar({"listar", pasta / "nada"}),
                Termina(1, AllOf(StartsWith("erro 3024: "), HasSubstr("criar BANCO"))));
    const std::string banco = pasta / "a.tarvo";
    ASSERT_THAT(Rodar({"criar", banco}), Termina(0));
    fs::resize_file(banco, 8192);
    EXPECT_THAT(Rodar({"listar", banco}),
                Termina(1, AllOf(StartsWith("erro 3343: "), HasSubstr("cópia de segurança"))));
    EXPECT_THAT(Arquivos(pasta.Caminho()), ElementsAre("a.tarvo"));
}

TEST(Comandos, OutputThatCannotBeWrittenIsAFailure) {
    EXPECT_THAT(Rodar({"--ajuda"}, {.saida = "/dev/full"}), Termina(1, StartsWith("erro 57: ")));
}

TEST(Comandos, ListingWorksOnDatabasesThatDoNotSayWhoseADeclarationIs) {
    apoio::BancoDeTeste banco(
        "insert into tblContribuinte (IE, RazãoSocial) values ('1', 'Órion'), ('2', 'Zeta');"
        "insert into tblDRQ (NroDRQ, Ref1, RegTrib, Tipo, IE, Consistente) values"
        " (7, '2003-07-01', '01', 1, '1', -1), (8, '2003-08-01', '04', 2, null, 0),"
        " (9, null, null, null, '3', null);");
    EXPECT_EQ(Rodar({"listar", banco.Arquivo()}).saida,
              "1  Órion\n  DRQ 7  07/2003  RPA  Normal\n2  Zeta\n"
              "Declarações sem contribuinte no banco (informe --ie)\n"
              "  DRQ 8  08/2003  Simples-ST  Substitutiva  não consistida\n"
              "3  (contribuinte ausente do banco)\n  DRQ 9  não consistida\n");
    banco.Executar("drop index idxtblDRQIE; alter table tblDRQ drop column IE;");
    const Execucao semColuna = Rodar({"listar", banco.Arquivo()});
    EXPECT_THAT(semColuna, Termina(0));
    EXPECT_THAT(semColuna.saida, HasSubstr("Zeta\nDeclarações sem contribuinte"));
}

TEST(Comandos, TheReferenceMonthIsKeptPerUser) {
    const apoio::PastaTemporaria pasta;
    ::setenv("XDG_CONFIG_HOME", pasta.Caminho().c_str(), 1);
    EXPECT_EQ(Rodar({"ref-atual"}).saida, "não definido\n");
    EXPECT_THAT(Rodar({"ref-atual", "07/2003"}), Termina(0));
    EXPECT_EQ(Rodar({"ref-atual"}).saida, "07/2003\n");
    EXPECT_THAT(apoio::BytesDe(pasta / "Tarvo.ini"), HasSubstr("[pRef]\nRefAtual=07/2003"));
    ::unsetenv("XDG_CONFIG_HOME");
}

}  // namespace
}  // namespace tarvo::host
