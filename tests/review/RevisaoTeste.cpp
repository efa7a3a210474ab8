// SPDX-License-Identifier: MIT
#include "review/Revisao.h"

#include "tests/support/Apoio.h"
#include "tests/support/BancoSorteado.h"

namespace tarvo::apoio {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using Lista = std::vector<std::string>;

constexpr const char* UmaDeclaracao = R"sql(
insert into tblContribuinte (IE, RazãoSocial) values ('1', 'Padaria'), ('2', 'Mercado');
insert into tblDRQ (NroDRQ, IE, Ref1, Ref2, Tipo, RegTrib, Consistente, Autenticação,
    SaldoCredAntDig, SaldoCredAntDigST) values (1, '1', '2003-05-01', '2003-05-01', 1, '01', -1, 'A', 0, 0);
)sql";

Lista Achar(BancoDeTeste& banco, const PedidoDeRevisao& pedido) {
    Lista textos;
    for (const Achado& achado : Revisar(*banco, pedido)) {
        textos.push_back(TextoDoAchado(achado));
    }
    return textos;
}

// What a changed declaration row says.
Lista AoMudar(const std::string& mudanca,
              const std::vector<std::string>& relatorios = {"10", "14"}) {
    BancoDeTeste banco(UmaDeclaracao);
    banco.Executar("update tblDRQ set " + mudanca);
    return Achar(banco, {.IE = "1", .NroDRQ = 1, .relatorios = relatorios});
}

TEST(Revisao, NamesWhatTheHeaderAndTheBalancesOfADeclarationDoNotShow) {
    EXPECT_THAT(AoMudar("Tipo = 1"), IsEmpty());
    for (const auto& [mudanca, achado] : std::vector<std::pair<std::string, std::string>>{
             {"Ref1 = null, Ref2 = null",
              "tblDRQ, 1 linha: sem Ref1 – a referência sai como 12/1899"},
             {"RegTrib = '02', Ref2 = null, ICMSFixPerRES = 0",
              "tblDRQ, 1 linha: sem Ref2 – o início do período sai como 12"},
             {"RegTrib = '02', Ref2 = '2002-06-01', ICMSFixPerRES = 0",
              "tblDRQ, 1 linha: do início do período só sai o mês (06/2002)"},
             {"Ref2 = '2003-01-01'",
              "tblDRQ, 1 linha: Ref2, que neste regime tributário não sai (01/2003)"},
             {"Tipo = 4", "tblDRQ, 1 linha: tipo de declaração desconhecido – sai em branco (4)"},
             {"RegTrib = '05'",
              "tblDRQ, 1 linha: regime tributário desconhecido – ele e a referência saem em branco "
              "(05)"},
             {"Consistente = 0",
              "tblDRQ, 1 linha: autenticação de uma declaração não consistida – não sai (A)"},
             {"Autenticação = null",
              "tblDRQ, 1 linha: declaração consistida sem autenticação – o lugar dela sai em "
              "branco"},
             {"SaldoCredAntDig = null",
              "relatório 10, tblDRQ, 1 linha: valor que falta – o relatório termina em erro "
              "(SaldoCredAntDig)"},
             {"SaldoCredAntDigST = null",
              "relatório 14, tblDRQ, 1 linha: valor que falta – o relatório termina em erro "
              "(SaldoCredAntDigST)"},
             {"RegTrib = '02'",
              "relatório 10, tblDRQ, 1 linha: valor que falta – o relatório termina em erro "
              "(ICMSFixPerRES)"},
             {"OutrasRES = 1, ICMSFixPerRES = -1",
              "relatório 10, tblDRQ, 2 linhas: valor que neste regime tributário não sai "
              "(ICMSFixPerRES, OutrasRES)"},
             {"RegTrib = '04', DeduçõesRPA = 5",
              "relatório 10, tblDRQ, 1 linha: valor que neste regime tributário não sai "
              "(DeduçõesRPA)"}}) {
        EXPECT_THAT(AoMudar(mudanca), ElementsAre(achado)) << mudanca;
    }
    EXPECT_THAT(
        AoMudar("RegTrib = null"),
        Contains(
            "relatório 10, tblDRQ, 1 linha: sem regime tributário – o relatório termina em erro"));
}

TEST(Revisao, NamesATaxpayerThatIsMissingOrNotTheDeclarationsOwn) {
    BancoDeTeste banco(UmaDeclaracao);
    EXPECT_THAT(Achar(banco, {.IE = "2", .NroDRQ = 1}),
                ElementsAre("a DRQ 1 é do contribuinte 1, não de 2"));
    EXPECT_THAT(Achar(banco, {.IE = "9", .NroDRQ = 7}),
                ElementsAre("o contribuinte 9 não existe neste banco",
                            "a declaração 7 não existe neste banco"));
    banco.Executar(
        std::string(TabelasSemChaves) +
        "insert into tblContribuinte (IE) values ('1'), ('1');"
        "alter table tblDRQ rename to antiga;"
        "create table tblDRQ (NroDRQ integer, Ref1 datetime, Ref2 datetime, Tipo integer, "
        "RegTrib text, Consistente boolean, Autenticação text, SaldoCredAntDig currency, "
        "ICMSFixPerRES currency, OutrasRES currency, DeduçõesRPA currency, "
        "SaldoCredAntDigST currency);"
        "insert into tblDRQ select NroDRQ, Ref1, Ref2, Tipo, RegTrib, Consistente, "
        "Autenticação, SaldoCredAntDig, ICMSFixPerRES, OutrasRES, DeduçõesRPA, "
        "SaldoCredAntDigST from antiga;"
        "insert into tblDRQ select * from tblDRQ");
    EXPECT_THAT(
        Achar(banco, {.IE = "1", .NroDRQ = 1}),
        ElementsAre("tblContribuinte, 1 linha: contribuinte repetido – só sai a primeira linha (1)",
                    "tblDRQ, 1 linha: declaração repetida – só sai a primeira linha (1)"));
}

TEST(Revisao, NamesTheOtherErasTableAndAReportThatIsNotOffered) {
    BancoDeTeste banco(UmaDeclaracao);
    banco.Executar(
        "update tblDRQ set Ref1 = '2001-11-01', Ref2 = null;"
        "insert into tblDetalhesCFOPs (NroDRQ, CFOP) values (1, '5.12');"
        "insert into \"tblOcorrências\" values (1, '007.01', 1, 0, 0);"
        "insert into \"tblQuadroOcorrências\" values ('007.01', 0, 'o', 'f')");
    const ConfiguracaoFixa configuracoes("07/2003");
    const std::string naoOferecido =
        "relatório 15: declaração anterior a 2002: só sai quando pedido pelo código";
    EXPECT_THAT(Achar(banco, {.IE = "1", .NroDRQ = 1}), ElementsAre(naoOferecido));
    EXPECT_THAT(Achar(banco, {.IE = "1", .NroDRQ = 1, .configuracoes = &configuracoes}),
                ElementsAre("a DRQ 1 é de 11/2001, mas o resumo usa a tabela de CFOPs de 07/2003",
                            "relatório 03, tblDetalhesCFOPs, 1 linha: sai com outro código de CFOP "
                            "(5.12 como 0.512)",
                            naoOferecido));
    EXPECT_THAT(
        Achar(
            banco,
            {.IE = "1", .NroDRQ = 1, .relatorios = {"15", "16"}, .configuracoes = &configuracoes}),
        IsEmpty());
}

TEST(Revisao, NamesAnEntryWhoseDetailsAnotherDeclarationsEntryOfThatNumberShares) {
    BancoDeTeste banco(UmaDeclaracao);
    banco.Executar(
        std::string(TabelasSemChaves) +
        "insert into tblContribuinte (IE) values ('1');"
        "insert into \"tblQuadroOcorrências\" values ('002.18', -1, 'o', 'f');"
        "insert into \"tblOcorrências\" values (1, '002.18', 5, 3, -1), (2, '002.19', 5, 1, -1),"
        "(1, '002.18', 6, 0, -1), (2, '002.18', 6, 0, -1);"
        "insert into tblIEsRemetente values (5, 'a', 2), (5, 'b', 1)");
    EXPECT_THAT(Achar(banco, {.IE = "1", .NroDRQ = 1, .relatorios = {"12"}}),
                ElementsAre("relatório 12, tblOcorrências, 1 linha: subitem com o mesmo Código de "
                            "um de outra declaração – os detalhes de ambos saem nas duas (002.18, "
                            "DRQ 2)"));
}

TEST(Revisao, NamesSlipsAfterTheFirstAndPaymentsThatSplitABlock) {
    BancoDeTeste banco(UmaDeclaracao);
    EXPECT_THAT(Achar(banco, {.relatorios = {"VELO"}}), IsEmpty());
    banco.Executar(
        "insert into tblVELO (Contribuinte) values ('a'), ('b'), ('c');"
        "insert into tblPagamento values (1, null, '2003-05-01', 1), (1, -1, '2003-05-01', 1),"
        "(1, 0, '2003-05-01', 1)");
    EXPECT_THAT(
        Achar(banco, {.relatorios = {"VELO"}}),
        ElementsAre(
            "relatório VELO, tblVELO, 2 linhas: guias depois da primeira – não saem (b, c)"));
    EXPECT_THAT(Achar(banco, {.IE = "1", .NroDRQ = 1}),
                Contains(HasSubstr("a substituição tributária sai em dois blocos")));
    EXPECT_THAT(Achar(banco, {.IE = "1", .NroDRQ = 1, .relatorios = {"01", "VELO"}}), SizeIs(1))
        << "what only other reports print";
}

TEST(Revisao, StaysReadableAndSaysWhatItCouldNotRead) {
    BancoDeTeste banco(UmaDeclaracao);
    for (int i = 0; i < 40; ++i) {
        banco.Executar("insert into tblMIDAX values (1, 'x" + std::to_string(i) + "\n', null, 1)");
    }
    banco.Executar(
        "drop table tblPagamento; insert into tblZFM_ALC (NroDRQ, CFOP, Data) values (1, '6.101', "
        "'ontem')");
    const Lista textos = Achar(banco, {.IE = "1", .NroDRQ = 1});
    EXPECT_THAT(
        textos,
        ElementsAre(
            "a revisão não pôde ler tudo: Erro de conversão: o valor \"ontem\" da coluna "
            "\"Data\" da tabela \"tblZFM_ALC\" não é uma data.",
            "tblMIDAX, 40 linhas: código que não começa com 1, 2 nem 3 – não sai em relatório "
            "algum (x0 , x1 , x2 , x3 , x4 , x5 , x6 , x7 , x8 , x9 , x10 , x11 …)",
            HasSubstr("a revisão não pôde ler tudo: ")));
}

TEST(RevisaoDoBanco, NamesAtOnceAllThatIsOfNoDeclaration) {
    BancoDeTeste banco(UmaDeclaracao);
    const auto textos = [&] {
        Lista lista;
        for (const Achado& achado : RevisarBanco(*banco)) {
            lista.push_back(TextoDoAchado(achado));
        }
        return lista;
    };
    EXPECT_THAT(textos(), IsEmpty());
    banco.Executar(TabelasSemChaves);
    banco.Executar(
        "insert into tblContribuinte (IE) values ('1');"
        "insert into tblDRQ (NroDRQ, IE) values (2, '9'), (3, null);"
        "insert into tblPagamento values (null, 0, null, 1), (77, 0, null, 1), (1, 0, null, 'x');"
        "insert into \"tblOcorrências\" values (1, '002.01', 5, 1, 0), (1, '002.01', 5, 1, 0),"
        "(1, '002.01', null, 1, 0);"
        "insert into tblIEsRemetente values (5, 'a', 1), (6, 'a', 1), (null, 'a', 1);"
        "insert into tblEstados values ('33', 'RJ', 'Rio'), ('33', 'RJ', 'Rio');"
        "insert into \"tblQuadroOcorrências\" values ('1', 0, 'a', ''), ('1', -1, 'a', ''), ('1', "
        "0, 'b', '');"
        "alter table tblMIDAX drop column Valor; drop table tblVELO; drop table "
        "\"tblResumoCFOPsSaídas\"");
    EXPECT_THAT(
        textos(),
        testing::IsSupersetOf(
            {"falta a tabela tblVELO", "falta a tabela tblResumoCFOPsSaídas",
             "faltam colunas em tblMIDAX: Valor",
             "tblDRQ, 1 linha: declaração que não diz de que contribuinte é (3)",
             "tblDRQ, 1 linha: declaração de contribuinte que não existe neste banco (2 de 9)",
             "tblPagamento, 1 linha: linha sem NroDRQ – não sai em declaração alguma",
             "tblPagamento, 1 linha: linha de declaração que não existe (77)",
             "tblPagamento, 1 linha: valor que não é do tipo da coluna Valor",
             "tblOcorrências, 1 linha: linha de chave repetida (5)",
             "tblOcorrências, 1 linha: linha sem Código",
             "tblIEsRemetente, 1 linha: linha de subitem que não existe (6)",
             "tblIEsRemetente, 1 linha: linha sem Código – não sai em subitem algum",
             "tblEstados, 1 linha: linha de chave repetida (33)",
             "tblQuadroOcorrências, 1 linha: linha de chave repetida (1 0)"}));
    banco.Executar(
        "alter table tblDRQ rename column IE to x; insert into tblContribuinte (IE) values ('1'), "
        "('2')");
    EXPECT_THAT(textos(), Contains(HasSubstr("não dizem de quem são")));
}

}  // namespace
}  // namespace tarvo::apoio
