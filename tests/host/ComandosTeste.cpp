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
             {{"exportar", "b", "--ie", "1", "--drq", "1", "--relatorios", "02", "--formato", "pdf",
               "--saida", "s", "--ref-atual", "01/0000"},
              "01/0000"},
             {{"lote", "b", "--saida", "s", "--de", "02/2003", "--ate", "01/2003"}, "--de"},
             {{"lote", "b", "--saida", "s", "--trabalhos", "0"}, "--trabalhos"},
             {{"lote", "b"}, "--saida"},
             {{"criar"}, "BANCO"},
             {{"listar", ""}, "BANCO"},
             {{"criar", "b", "--nada"}, "--nada"},
             {{"criar", "b", "listar", "b"}, "não esperado: listar"},
             {{"criar", "b", "--exemplo=2"}, "--exemplo não tem valor"},
             {{"criarr", "b"}, "criarr"},
             {{"exportar", "b", "--ie"}, "--ie pede um valor"},
             {{"lote", "b", "--saida", "s", "--ie", "1", "--ie", "2"}, "--ie só pode"},
         }) {
        const Execucao e = Rodar(argumentos);
        EXPECT_EQ(e.situacao, 2) << motivo;
        EXPECT_THAT(e.erros, StartsWith("uso incorreto: "));
        EXPECT_THAT(e.erros, HasSubstr(motivo));
        EXPECT_EQ(e.saida, "");
    }
}

TEST(Comandos, HelpIsPortugueseAndNamesEveryCommand) {
    std::string ajuda = Rodar({"--ajuda"}).saida;
    EXPECT_EQ(Rodar({}).saida, ajuda);
    for (const char* comando :
         {"criar", "listar", "exportar", "lote", "selecionar", "imprimir", "velo", "ref-atual"}) {
        EXPECT_THAT(ajuda, HasSubstr(std::string("\n  ") + comando));
        const Execucao e = Rodar({comando, "--ajuda"});
        EXPECT_EQ(e.situacao, 0);
        EXPECT_THAT(e.saida, HasSubstr(std::string("Uso: relatorios-tarvo ") + comando + " "));
        ajuda += e.saida;
    }
    for (const char* ingles : {"Usage", "Option", "Positional", "OPTIONS", "ommand", "REQUIRED",
                               "TEXT", "Print", "help message"}) {
        EXPECT_THAT(ajuda, testing::Not(HasSubstr(ingles)));
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
    const auto protegida = pasta / "protegida";
    CriarPastaProtegida(protegida);
    EXPECT_THAT(Rodar({"criar", protegida / "b.tarvo", "--exemplo"}, {.comoNinguem = true}).erros,
                StartsWith("erro 70: "));
    const Execucao semEspaco =
        Rodar({"criar", (pasta / "c.tarvo").string(), "--exemplo"}, {.limiteDeArquivo = 100'000});
    EXPECT_EQ(semEspaco.situacao, 1);
    EXPECT_THAT(semEspaco.erros, StartsWith("erro "));
    EXPECT_EQ(Arquivos(pasta.Caminho()), std::vector<std::string>{"a.tarvo"});
}

TEST(Comandos, WhatIsNoDeclarationDatabaseIsRefusedByNumber) {
    const apoio::PastaTemporaria pasta;
    std::ofstream(pasta / "texto.txt") << "isto não é um banco de dados, só um texto qualquer\n";
    EXPECT_THAT(Rodar({"listar", (pasta / "texto.txt").string()}).erros, StartsWith("erro 3343: "));
    EXPECT_THAT(Rodar({"listar", (pasta / "nada").string()}).erros, StartsWith("erro 3024: "));
    EXPECT_THAT(Rodar({"listar", pasta.Caminho().string()}).erros, StartsWith("erro 3343: "));
    const std::string banco = (pasta / "a.tarvo").string();
    ASSERT_EQ(Rodar({"criar", banco}).situacao, 0);
    std::filesystem::resize_file(banco, 8192);
    const Execucao truncado = Rodar({"listar", banco});
    EXPECT_EQ(truncado.situacao, 1);
    EXPECT_THAT(truncado.erros, StartsWith("erro 3343: "));
    EXPECT_THAT(truncado.erros, HasSubstr("cópia de segurança"));
    EXPECT_THAT(Arquivos(pasta.Caminho()), testing::ElementsAre("a.tarvo", "texto.txt"));
}

TEST(Comandos, OutputThatCannotBeWrittenIsAFailure) {
    const Execucao e = Rodar({"--ajuda"}, {.saida = "/dev/full"});
    EXPECT_EQ(e.situacao, 1);
    EXPECT_THAT(e.erros, StartsWith("erro 57: "));
}

TEST(Comandos, ListingWorksOnDatabasesThatDoNotSayWhoseADeclarationIs) {
    apoio::BancoDeTeste banco(
        "insert into tblContribuinte (IE, RazãoSocial) values ('1', 'Órion'), ('2', 'Zeta');"
        "insert into tblDRQ (NroDRQ, Ref1, RegTrib, Tipo, IE, Consistente) values"
        " (7, '2003-07-01', '01', 1, '1', -1), (8, '2003-08-01', '04', 2, null, 0),"
        " (9, null, null, null, '3', null);");
    EXPECT_EQ(Rodar({"listar", banco.Arquivo().string()}).saida,
              "1  Órion\n  DRQ 7  07/2003  RPA  Normal\n2  Zeta\n"
              "Declarações sem contribuinte no banco (informe --ie)\n"
              "  DRQ 8  08/2003  Simples-ST  Substitutiva  não consistida\n"
              "3  (contribuinte ausente do banco)\n  DRQ 9  não consistida\n");
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
