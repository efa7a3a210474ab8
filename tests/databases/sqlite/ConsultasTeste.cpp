// SPDX-License-Identifier: MIT
#include <sqlite3.h>

#include <string>
#include <vector>

#include "tests/databases/sqlite/LinhasDe.h"

// Every query text that the reports send, over data that tells its possible meanings apart.
namespace tarvo {

namespace {

constexpr std::string_view Dados = R"(
INSERT INTO tblContribuinte ("IE", "RazãoSocial", "UF") VALUES
    ('100', 'Água Doce Ltda', 'VD'), ('O''Hara "X"', 'Irmãos', 'VD'), ('Isenta', 'Sem IE', 'VD');
INSERT INTO tblDRQ ("NroDRQ", "IE", "Ref1", "RegTrib") VALUES
    (9, '100', '2003-05-01', '01'), (7, '100', '2001-12-01', '02'), (8, '100', NULL, NULL);
INSERT INTO tblDetalhesCFOPs
    ("NroDRQ", "CFOP", "Imposto", "ImpostoRetidoST", "ImpRetSubstitutoST", "ValorContábil") VALUES
    (7, '6.102', 10000, NULL, NULL, 1), (7, '5.102', 20000, 3, 4, 2), (7, '5.101', 40000, 5, NULL, 3),
    (7, '5.1491', 80000, 6, NULL, 4), (7, '1.101', 160000, 50000, 60000, 5),
    (9, '5.102', 320000, 7, 8, 6), (9, '6.102', 640000, 9, 9, 7), (9, '6.102', 650000, 9, 9, 8);
INSERT INTO tblDetalhesInterUFs
    ("NroDRQ", "CFOP", "UF", "ValorContábil_1", "ValorContábil_2", "ICMSCobradoST") VALUES
    (7, '6.102', '15', 10000, 1, NULL), (7, '6.103', '25', 20000, 2, NULL),
    (7, '6.102', '41', 30000, 4, NULL), (7, '2.102', '15', 40000, 8, 10000),
    (7, '6.109', '15', 50000, 16, NULL), (7, '6.102', '99', 60000, 32, NULL),
    (9, '6.102', '15', 70000, 64, NULL);
INSERT INTO tblEstados VALUES ('41', 'PR', 'Paraná'), ('25', 'PB', 'Paraíba'), ('15', 'PA', 'Pará');
INSERT INTO tblZFM_ALC ("NroDRQ", "CFOP", "NF", "Data", "MunicípioDest", "Valor") VALUES
    (7, '6.102', '30', '2001-12-20', 'B', 10000), (7, '6.102', '10', '2001-12-05', 'B', 20000),
    (7, '6.102', '10', '2001-12-05', 'A', 30000), (7, '6.102', '10', '2001-12-05', 'B', 20000),
    (7, '6.102', '77', '2001-12-01', 'Z', 40000), (9, '6.102', '99', '2001-12-02', 'A', 50000),
    (7, '6.999', '88', '2001-12-02', 'A', 60000), (7, '6.102', '66', NULL, 'A', 70000);
INSERT INTO "tblMunicípiosZFM_ALC" VALUES ('A', 'Manaus', 'AM'), ('B', 'Macapá', 'AP');
INSERT INTO "tblOcorrências" ("NroDRQ", "CódSubItem", "Código", "Valor", "OpPróprias") VALUES
    (7, '002.19', 30, 10000, -1), (7, '002.18', 20, 20000, 1), (7, '002.18', 10, NULL, -1),
    (7, '002.18', 40, 40000, 0), (7, '014.02', 60, 50000, -1), (7, '014.01', 50, 60000, -1),
    (7, '007.01', 70, 70000, 0), (7, '0020.1', 80, 80000, 0), (9, '002.18', 90, 90000, -1),
    (7, '003.01', 91, NULL, -1);
INSERT INTO "tblQuadroOcorrências" VALUES
    ('002.18', 0, 'substituição', 'b'), ('002.18', -1, 'próprias', 'a'), ('007.01', 0, 'ST-11', 'c');
INSERT INTO "tblIEsRemetente" VALUES (20, '300', 1), (20, '100', 2), (30, '200', 3), (20, NULL, 4);
INSERT INTO "tblRecibosCredito" VALUES (20, 'b', 1), (20, 'A', 2);
INSERT INTO "tblIESubstituto" ("Código", "IESubstituto", "NF") VALUES
    (20, '2', '1'), (20, '1', '2'), (20, '1', '1');
INSERT INTO "tblIESubstituido" ("Código", "IESubstituido", "NF") VALUES (20, '2', '1'), (20, '1', '9');
INSERT INTO "tblMIDAX" ("NroDRQ", "CódMIDAX", "Município", "Valor") VALUES
    (7, '1.2', 'm2', 1), (7, '1.1', 'm2', 2), (7, '1.1', 'm1', 3), (7, '2.1', 'm1', 4),
    (7, '3.2', NULL, 5), (7, '3.1', NULL, 6), (9, '1.1', 'm1', 7), (7, '1.1', 'm9', 8);
INSERT INTO "tblMunicípios" VALUES ('m1', 'Ápia'), ('m2', 'Aluvião');
INSERT INTO "tblCódigosMIDAX" VALUES
    ('3.1', 'um', 'Grupo três.'), ('3.2', 'dois', NULL), ('1.1', 'três', 'Grupo um');
INSERT INTO "tblPagamento" VALUES
    (7, 0, '2001-12-01', 1), (7, 1, '2001-12-09', 2), (7, -1, '2001-12-02', 3), (7, -1, NULL, 4),
    (9, -1, '2001-12-01', 5);
INSERT INTO "tblRegistroExportação" VALUES (7, 'b2'), (7, 'B10'), (9, 'a'), (7, 'A3');
INSERT INTO "tblVELO" ("Contribuinte", "ValorTotal") VALUES ('primeiro', '1'), ('segundo', '2');
INSERT INTO "tblResumoCFOPsSaídas" ("NroDRQ", "Linha") VALUES (7, 'z'), (9, 'm'), (7, 'a');
)";

struct Consulta {
    const char* promessa;
    std::string texto;
    const char* colunas;
    const char* linhas;
};

std::string Identificacao(const std::string& IE, int numero) {
    return "select tblContribuinte.*, tblDRQ.* from tblContribuinte, tblDRQ where "
           "tblContribuinte.IE = '" +
           IE + "' And tblDRQ.NroDRQ = " + std::to_string(numero);
}

std::string Soma(const std::string& tabela, const std::string& coluna, const std::string& onde) {
    return "SELECT DISTINCTROW Sum(" + tabela + "." + coluna + ") AS [Soma De " + coluna +
           "] FROM " + tabela + " WHERE (" + onde + ") GROUP BY " + tabela + ".NroDRQ HAVING (((" +
           tabela + ".NroDRQ)=7));";
}

std::string SomaDoItem(const std::string& item, const std::string& opProprias) {
    return Soma("tblOcorrências", "Valor",
                "(CódSubItem Like '" + item + "*') AND (OpPróprias" + opProprias + ")");
}

std::string SubitensDoItem(const std::string& item, const std::string& opProprias,
                           const std::string& ordem) {
    return "SELECT * FROM tblOcorrências WHERE ((NroDRQ=7) AND(OpPróprias=" + opProprias +
           ")AND(Left(CódSubitem, 3)='" + item + "'))" + ordem;
}

std::string PorEstado(const std::string& somas, const std::string& grupo) {
    return "select [UF] & '. ' & [Estado] as UFESTADO, Estado, " + somas +
           " from tblDetalhesInterUFs inner join tblEstados on tblDetalhesInterUFs.UF = "
           "tblEstados.Código where (((Left(tblDetalhesInterUFs.CFOP, 1)) = '" +
           grupo +
           "')) and tblDetalhesInterUFs.NroDRQ = 7 group by [UF] & '. ' & [Estado], Estado order "
           "by Estado";
}

std::string SubitensDoQuadro(const std::string& booleano, const std::string& filtro) {
    return "select tblOcorrências.CódSubItem, tblOcorrências.NroDRQ, tblOcorrências.Código, "
           "tblOcorrências.Valor, tblOcorrências.OpPróprias, tblQuadroOcorrências.Ocorrência, "
           "tblQuadroOcorrências.FLegal from tblOcorrências inner join tblQuadroOcorrências on "
           "(tblOcorrências.CódSubItem = tblQuadroOcorrências.CódSubItem) where "
           "(tblQuadroOcorrências.OpPróprias = " +
           booleano + ") and ((" + filtro + ") AND tblOcorrências.OpPróprias = " + booleano +
           " AND tblOcorrências.NroDRQ = 7) order by tblOcorrências.CódSubItem";
}

std::string NotasZFM(const std::string& CFOP) {
    return "SELECT distinctrow tblZFM_ALC.*, tblMunicípiosZFM_ALC.Município, "
           "tblMunicípiosZFM_ALC.UF As UFMun FROM tblMunicípiosZFM_ALC, tblDetalhesCFOPs INNER "
           "JOIN tblZFM_ALC ON tblDetalhesCFOPs.CFOP = tblZFM_ALC.CFOP  WHERE tblZFM_ALC.NroDRQ = "
           "7 AND tblMunicípiosZFM_ALC.CódMunicípio = tblZFM_ALC.MunicípioDest  AND "
           "tblZFM_ALC.CFOP = '" +
           CFOP + "' ORDER BY tblZFM_ALC.Data";
}

const std::vector<Consulta> Consultas = {
    {"reads the reference", "select Ref1 from tblDRQ where NroDRQ = 7", "Ref1", "01/12/2001"},
    {"identifies", Identificacao("100", 7),
     "tblContribuinte.IE|RazãoSocial|nrodrq|REGTRIB|SaldoCredAntDig",
     "100|Água Doce Ltda|7|02|Null"},
    {"identifies quoted registrations", Identificacao("O''Hara \"X\"", 7), "RazãoSocial", "Irmãos"},
    {"identifies without regard to case", Identificacao("iSENTA", 7), "RazãoSocial", "Sem IE"},
    {"identifies no missing declaration", Identificacao("100", 6), "RegTrib", ""},
    {"reads the taxpayer", "select tblContribuinte.* from tblContribuinte where IE = '100'",
     "IE|razãosocial", "100|Água Doce Ltda"},
    {"reads a heading",
     "select Cabeçalho from tblCódigosMIDAX where Left(tblCódigosMIDAX.Código, 1) = '3'",
     "Cabeçalho", "Grupo três.\nNull"},
    {"opens the work table", "SELECT * FROM tblResumoCFOPsSaídas", "Linha", "z\nm\na"},
    {"reads the work table back in order of addition",
     "select * from tblResumoCFOPsSaídas where NroDRQ = 7", "Linha|CFOP", "z|Null\na|Null"},
    {"selects a CFOP range as text",
     "SELECT * FROM tblDetalhesCFOPs WHERE ((NroDRQ=7) AND (CFOP >= '5.101' AND CFOP <= '5.149' "
     "))",
     "CFOP", "5.102\n5.101"},
    {"selects a CFOP range with an extra code",
     "SELECT * FROM tblDetalhesCFOPs WHERE ((NroDRQ=7) AND ((CFOP >= '5.101' AND CFOP <= '5.101' "
     ") OR (CFOP = '6.102')))",
     "CFOP", "6.102\n5.101"},
    {"sums a column exactly",
     Soma("tblDetalhesCFOPs", "Imposto",
          "((tblDetalhesCFOPs.CFOP) Like '5*' Or (tblDetalhesCFOPs.CFOP) Like '6*' Or "
          "(tblDetalhesCFOPs.CFOP) Like '7*')"),
     "SOMA de Imposto", "15"},
    {"sums no rows to no row", Soma("tblDetalhesCFOPs", "Imposto", "(CFOP Like '3*')"),
     "Soma De Imposto", ""},
    {"sums own operations, any non-zero being True", SomaDoItem("002", "=True"), "Soma de Valor",
     "3"},
    {"sums Nulls to Null", SomaDoItem("003", "=True"), "Soma de Valor", "Null"},
    {"sums substitution", SomaDoItem("002", " = False"), "Soma de Valor", "12"},
    {"lists sub-items in code order, equal ones as added",
     SubitensDoItem("002", "True", "ORDER BY CódSubitem"), "CódSubItem|Código|Valor|OpPróprias",
     "002.18|20|2|Verdadeiro\n002.18|10|Null|Verdadeiro\n002.19|30|1|Verdadeiro"},
    {"lists ST sub-items", SubitensDoItem("002", "False", "ORDER BY CódSubitem"), "Código",
     "40\n80"},
    {"lists deductions as added", SubitensDoItem("014", "True", ""), "CódSubItem",
     "014.02\n014.01"},
    {"reads the regime", "SELECT tblDRQ.RegTrib FROM tblDRQ WHERE NroDRQ = 7", "RegTrib", "02"},
    {"sums outputs by state, in Portuguese order",
     PorEstado("sum(tblDetalhesInterUFs.ValorContábil_2) as Soma_ValorContábil_2, "
               "sum(tblDetalhesInterUFs.ValorContábil_1) as Soma_ValorContábil_1, "
               "sum(tblDetalhesInterUFs.Imposto) as Soma_Imposto",
               "6"),
     "UFESTADO|Soma_ValorContábil_1|Soma_ValorContábil_2|Soma_Imposto",
     "PA. Pará|6|0,0017|Null\nPB. Paraíba|2|0,0002|Null\nPR. Paraná|3|0,0004|Null"},
    {"sums inputs by state",
     PorEstado("sum(tblDetalhesInterUFs.ValorContábil_1) as Soma_ValorContábil_1", "2"),
     "UFESTADO|Estado|Soma_ValorContábil_1", "PA. Pará|Pará|4"},
    {"groups ZFM invoices, each CFOP line once",
     "select distinctrow tblDetalhesCFOPs.* from tblDetalhesCFOPs, tblZFM_ALC where "
     "Left(tblDetalhesCFOPs.CFOP, 1) = '6' and tblDetalhesCFOPs.CFOP = tblZFM_ALC.CFOP and "
     "tblZFM_ALC.NroDRQ = 7 and tblDetalhesCFOPs.NroDRQ = 7 order by tblDetalhesCFOPs.CFOP",
     "CFOP|Imposto", "6.102|1"},
    {"lists ZFM invoices by date, equal ones kept and as added", NotasZFM("6.102"),
     "NF|Data|Município|UFMun|Valor",
     "66|Null|Manaus|AM|7\n10|05/12/2001|Macapá|AP|2\n10|05/12/2001|Manaus|AM|3\n"
     "10|05/12/2001|Macapá|AP|2\n30|20/12/2001|Macapá|AP|1"},
    {"lists no ZFM invoice without a CFOP line", NotasZFM("6.999"), "NF", ""},
    {"orders payments True first, Null dates first",
     "select * from tblPagamento where NroDRQ = 7 order by opPróprias, data", "OpPróprias|Data",
     "Verdadeiro|Null\nVerdadeiro|02/12/2001\nVerdadeiro|09/12/2001\nFalso|01/12/2001"},
    {"lists MIDAX entries by town",
     "select * from tblMIDAX, tblMunicípios where Left(tblMIDAX.CódMIDAX, 1) = '1' And "
     "tblMIDAX.Município = tblMunicípios.CódMunicípio And NroDRQ = 7 order by "
     "tblMunicípios.Município, tblMIDAX.CódMIDAX",
     "tblMunicípios.Município|CódMIDAX|tblMIDAX.Município|Valor",
     "Aluvião|1.1|m2|0,0002\nAluvião|1.2|m2|0,0001\nÁpia|1.1|m1|0,0003"},
    {"lists MIDAX group 3 as added",
     "select * from tblMIDAX, tblCódigosMIDAX where Left(tblMIDAX.CódMIDAX, 1) = '3' And "
     "tblMIDAX.CódMIDAX = tblCódigosMIDAX.Código And NroDRQ = 7",
     "CódMIDAX|Descrição", "3.2|dois\n3.1|um"},
    {"joins sub-items to the catalogue row of their kind",
     SubitensDoQuadro("TRUE",
                      "tblOcorrências.CódSubItem = '002.18' Or tblOcorrências.CódSubItem = "
                      "'002.19' Or tblOcorrências.CódSubItem = '007.29'"),
     "CódSubItem|Código|Ocorrência|FLegal", "002.18|20|próprias|a\n002.18|10|próprias|a"},
    {"joins ST sub-items", SubitensDoQuadro("FALSE", "tblOcorrências.CódSubItem = '007.01'"),
     "Código|Ocorrência|OpPróprias", "70|ST-11|Falso"},
    {"lists senders, Null first",
     "select * from tblIEsRemetente where Código = 20 order by IERemetente", "IERemetente",
     "Null\n100\n300"},
    {"lists receipts without regard to case",
     "select * from tblRecibosCredito where Código = 20 order by CodAutorização", "CodAutorização",
     "A\nb"},
    {"lists substitutes",
     "select * from tblIESubstituto where Código = 20 order by IESubstituto, NF", "IESubstituto|NF",
     "1|1\n1|2\n2|1"},
    {"lists substituted",
     "select * from tblIESubstituido where Código = 20 order by IESubstituido, NF", "IESubstituido",
     "1\n2"},
    {"lists exports", "select * from tblRegistroExportação where NroDRQ = 7 order by RE", "RE",
     "A3\nB10\nb2"},
    {"reads the slip, first added first", "select * from tblVELO", "Contribuinte|ValorTotal",
     "primeiro|1\nsegundo|2"},
};

class ConsultasDosRelatorios : public testing::Test {
  protected:
    apoio::BancoDeTeste banco_{Dados};
};

TEST_F(ConsultasDosRelatorios, MeanWhatTheySay) {
    for (const auto& [promessa, texto, colunas, linhas] : Consultas) {
        SCOPED_TRACE(promessa);
        try {
            for (const auto tipo : {TipoRecordset::ForwardOnly, TipoRecordset::Dynaset}) {
                EXPECT_EQ(LinhasDe(*banco_->OpenRecordset(texto, tipo), colunas), linhas);
            }
        } catch (const Erro& erro) {
            ADD_FAILURE() << erro.Descricao();
        }
    }
}

// SQLite counts the steps of its machine: a declaration among many must cost what it costs alone.
TEST_F(ConsultasDosRelatorios, CostTheSameAmongManyDeclarations) {
    const auto passos = [this] {
        sqlite3* db = nullptr;
        EXPECT_EQ(sqlite3_open(banco_.Arquivo().c_str(), &db), SQLITE_OK);
        std::vector<int> contagens;
        {
            const auto banco = BancoSQLite::Adotar(db);
            for (const Consulta& consulta : Consultas) {
                int contagem = 0;
                LinhasDe(*banco, consulta.texto, consulta.colunas);  // reads the schema
                sqlite3_progress_handler(
                    db, 1, [](void* n) { return 0 * ++*static_cast<int*>(n); }, &contagem);
                LinhasDe(*banco, consulta.texto, consulta.colunas);
                sqlite3_progress_handler(db, 0, nullptr, nullptr);
                contagens.push_back(contagem);
            }
        }
        EXPECT_EQ(sqlite3_close(db), SQLITE_OK);
        return contagens;
    };
    const std::vector<int> entrePoucas = passos();
    banco_.Executar(
        "WITH RECURSIVE d(n) AS (SELECT 100 UNION ALL SELECT n + 1 FROM d WHERE n < 1100) "
        "INSERT INTO tblDetalhesCFOPs (NroDRQ, CFOP) SELECT n, '6.' || (n % 7 + 102) FROM d");
    // Tables, columns, and what each declaration above has there.
    const std::pair<std::string, std::string> muitas[] = {
        {"tblDRQ (NroDRQ, IE)", "NroDRQ, 'c' || NroDRQ"},
        {"tblContribuinte (IE)", "'c' || NroDRQ"},
        {"tblZFM_ALC (NroDRQ, CFOP, MunicípioDest)", "NroDRQ, CFOP, 'A'"},
        {"tblDetalhesInterUFs (NroDRQ, CFOP, UF)", "NroDRQ, CFOP, '15'"},
        {"tblOcorrências", "NroDRQ, '002.18', NroDRQ, 1, -1"},
        {"tblIEsRemetente (Código)", "NroDRQ"},
        {"tblRecibosCredito (Código)", "NroDRQ"},
        {"tblIESubstituto (Código)", "NroDRQ"},
        {"tblIESubstituido (Código)", "NroDRQ"},
        {"tblMIDAX", "NroDRQ, '1.1', 'm1', 1"},
        {"tblRegistroExportação", "NroDRQ, 'x'"},
        {"tblPagamento (NroDRQ)", "NroDRQ"}};
    for (const auto& [destino, colunas] : muitas) {
        banco_.Executar("INSERT INTO " + destino + " SELECT " + colunas +
                        " FROM tblDetalhesCFOPs WHERE NroDRQ > 99");
    }
    const std::vector<int> entreMuitas = passos();
    for (std::size_t i = 0; i < Consultas.size(); ++i) {
        EXPECT_LT(entreMuitas[i], entrePoucas[i] + 200) << Consultas[i].promessa;
    }
}

}  // namespace

}  // namespace tarvo
