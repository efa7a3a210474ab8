#include <fstream>

#include "tests/host/Programa.h"

namespace tarvo::host {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(Comandos, WrongUsageIsToldInPortugueseWithStatus2) {
    for (const auto& [argumentos, motivo] :
         std::vector<std::pair<std::vector<std::string>, const char*>>{
             {{"exportar", "b", "--relatorios", "01", "--formato", "pdf", "--saida", "s"}, "--ie"},
             {{"exportar", "b", "--ie", "1", "--relatorios", "10", "--formato", "pdf", "--saida",
               "s"},
              "--drq"},
             {{"exportar", "b", "--ie", "1", "--drq", "x", "--relatorios", "10", "--formato", "pdf",
               "--saida", "s"},
              "--drq"},
             {{"exportar", "b", "--relatorios", "18", "--formato", "pdf", "--saida", "s"},
              "\"18\""},
             {{"exportar", "b", "--relatorios", "VELO", "--formato", "doc", "--saida", "s"}, "doc"},
             {{"exportar", "b", "--relatorios", "VELO", "--formato", "pdf"}, "--saida"},
             {{"exportar", "b", "--ie", "1", "--drq", "1", "--relatorios", "02", "--formato", "pdf",
               "--saida", "s", "--ref-atual", "13/2003"},
              "13/2003"},
             {{"ref-atual", "2003-01"}, "2003-01"},
             {{"lote", "b", "--saida", "s", "--unico", "--formato", "png"}, "--unico"},
             {{"criar"}, "banco"},
             {{"criar", "b", "--nada"}, "--nada"},
             {{"exportar", "--ie"}, "--ie"},
         }) {
        const Execucao e = Rodar(argumentos);
        EXPECT_EQ(e.situacao, 2) << motivo;
        EXPECT_THAT(e.erros, StartsWith("uso incorreto: "));
        EXPECT_THAT(e.erros, HasSubstr(motivo));
        EXPECT_EQ(e.saida, "");
    }
}

TEST(Comandos, HelpIsPortugueseAndNamesEveryCommand) {
    const Execucao e = Rodar({"--ajuda"});
    EXPECT_EQ(e.situacao, 0);
    for (const char* comando : {"criar", "listar", "exportar", "lote", "selecionar", "imprimir",
                                "velo", "ref-atual", "Uso:"}) {
        EXPECT_THAT(e.saida, HasSubstr(comando));
    }
    for (const char* ingles :
         {"Usage", "Options", "Positionals", "OPTIONS", "Subcommands", "Print"}) {
        EXPECT_THAT(e.saida + Rodar({"exportar", "--ajuda"}).saida,
                    testing::Not(HasSubstr(ingles)));
    }
}

TEST(Comandos, CreatingNeverOverwritesAndLeavesNothingHalfMade) {
    const apoio::PastaTemporaria pasta;
    const std::string banco = (pasta / "a.tarvo").string();
    EXPECT_EQ(Rodar({"criar", banco}).situacao, 0);
    const std::string antes = Conteudo(banco);
    const Execucao repetida = Rodar({"criar", banco, "--exemplo"});
    EXPECT_EQ(repetida.situacao, 1);
    EXPECT_THAT(repetida.erros, StartsWith("erro 3204: "));
    EXPECT_EQ(Conteudo(banco), antes);

    EXPECT_THAT(Rodar({"criar", (pasta / "nao/ha.tarvo").string()}).erros, StartsWith("erro 76: "));
    std::filesystem::permissions(pasta.Caminho(), std::filesystem::perms::owner_all |
                                                      std::filesystem::perms::others_read |
                                                      std::filesystem::perms::others_exec);
    const Execucao proibida = Rodar({"criar", (pasta / "b.tarvo").string(), "--exemplo"}, true);
    EXPECT_THAT(proibida.erros, StartsWith("erro 70: "));
    Programa(std::vector<std::string>{"criar", (pasta / "c.tarvo").string(), "--exemplo"}, false,
             100'000)
        .Esperar();
    EXPECT_EQ(Arquivos(pasta.Caminho()), std::vector<std::string>{"a.tarvo"});
}

TEST(Comandos, WhatIsNoDeclarationDatabaseIsRefusedByNumber) {
    const apoio::PastaTemporaria pasta;
    std::ofstream(pasta / "texto.txt") << "isto não é um banco de dados, só um texto qualquer\n";
    EXPECT_THAT(Rodar({"listar", (pasta / "texto.txt").string()}).erros, StartsWith("erro 3343: "));
    EXPECT_THAT(Rodar({"listar", (pasta / "nada").string()}).erros, StartsWith("erro 3024: "));
    const Execucao naPasta = Rodar({"listar", pasta.Caminho().string()});
    EXPECT_EQ(naPasta.situacao, 1);
    EXPECT_THAT(naPasta.erros, StartsWith("erro "));
    EXPECT_EQ(Arquivos(pasta.Caminho()), std::vector<std::string>{"texto.txt"});
}

TEST(Comandos, ListingWorksOnDatabasesThatDoNotSayWhoseADeclarationIs) {
    apoio::BancoDeTeste banco(
        "insert into tblContribuinte (IE, RazãoSocial) values ('1', 'Órion'), ('2', 'Zeta');"
        "insert into tblDRQ (NroDRQ, Ref1, RegTrib, Tipo, IE) values"
        " (7, '2003-07-01', '01', 1, '1'), (8, '2003-08-01', '04', 2, null);");
    EXPECT_EQ(Rodar({"listar", banco.Arquivo().string()}).saida,
              "1  Órion\n  DRQ 7  07/2003  RPA  Normal  não consistida\n2  Zeta\n"
              "Declarações sem contribuinte no banco (informe --ie)\n"
              "  DRQ 8  08/2003  Simples-ST  Substitutiva  não consistida\n");
    banco.Executar("drop index idxtblDRQIE; alter table tblDRQ drop column IE;");
    const Execucao semColuna = Rodar({"listar", banco.Arquivo().string()});
    EXPECT_EQ(semColuna.situacao, 0) << semColuna.erros;
    EXPECT_THAT(semColuna.saida, HasSubstr("Zeta\nDeclarações sem contribuinte"));
    EXPECT_THAT(Rodar({"lote", banco.Arquivo().string(), "--saida", "x"}).erros, HasSubstr("--ie"));
}

TEST(Comandos, TheReferenceMonthIsKeptPerUser) {
    const apoio::PastaTemporaria pasta;
    ::setenv("XDG_CONFIG_HOME", pasta.Caminho().c_str(), 1);
    EXPECT_EQ(Rodar({"ref-atual"}).saida, "não definido\n");
    EXPECT_EQ(Rodar({"ref-atual", "07/2003"}).situacao, 0);
    EXPECT_EQ(Rodar({"ref-atual"}).saida, "07/2003\n");
    EXPECT_THAT(Conteudo(pasta / "Tarvo.ini"), HasSubstr("[pRef]\nRefAtual=07/2003"));
    ::unsetenv("XDG_CONFIG_HOME");
}

}  // namespace
}  // namespace tarvo::host
