// SPDX-License-Identifier: MIT
#include <sqlite3.h>

#include <string>

#include "data/LeitoresDeCampo.h"
#include "tests/databases/sqlite/LinhasDe.h"

namespace tarvo {

namespace {

constexpr auto Avanco = TipoRecordset::ForwardOnly;
constexpr auto Dina = TipoRecordset::Dynaset;
constexpr const char* Apuracao = "SELECT * FROM tblApuraçãoOperaçõesPróprias";

void Acrescentar(Recordset& trabalho, const std::string& linha) {
    trabalho.AddNew();
    trabalho.Fields("NroDRQ") = std::int32_t{7};
    trabalho.Fields("linha") = linha;
    trabalho.Update();
}

class Registros : public testing::Test {
  protected:
    std::string Lidas(BancoDados& banco) { return LinhasDe(banco, Apuracao, "Linha"); }
    [[nodiscard]] std::unique_ptr<BancoSQLite> AbrirOutra(const OpcoesAbertura& opcoes = {}) const {
        return BancoSQLite::Abrir(banco_.Arquivo(), opcoes);
    }

    apoio::BancoDeTeste banco_{
        "INSERT INTO tblDRQ (NroDRQ, IE, Tipo) VALUES (7, 'a', 1), (8, 'b', 2);"
        "INSERT INTO tblContribuinte (IE) VALUES ('a');"};
};

TEST_F(Registros, GoFromTheFirstToTheLast) {
    for (const auto tipo : {Avanco, Dina}) {
        const auto rs = banco_->OpenRecordset("SELECT * FROM tblDRQ", tipo);
        EXPECT_FALSE(rs->BOF());
        EXPECT_EQ(TextoCampo(rs->Fields(1)), "a");
        const Field campo = rs->Fields("ie");
        for (const int posicao : {-1, 31}) {
            EXPECT_EQ(NumeroDoErro([&] { static_cast<void>(Valor(rs->Fields(posicao))); }), 3265);
        }
        EXPECT_EQ(NumeroDoErro([&] { static_cast<void>(Valor(rs->Fields(""))); }), 3265);
        rs->MoveNext();
        EXPECT_EQ(TextoCampo(campo), "b");
        rs->MoveNext();
        EXPECT_TRUE(rs->EOF_());
        EXPECT_FALSE(rs->BOF());
        EXPECT_EQ(NumeroDoErro([&] { rs->MoveNext(); }), 3021);
        EXPECT_EQ(NumeroDoErro([&] { static_cast<void>(Valor(rs->Fields(0))); }), 3021);
        rs->Close();
        rs->Close();
        EXPECT_EQ(NumeroDoErro([&] { static_cast<void>(rs->EOF_()); }), 3420);
        EXPECT_EQ(NumeroDoErro([&] { Valor v = campo; }), 3420);

        const auto vazio = banco_->OpenRecordset("SELECT * FROM tblDRQ WHERE Tipo = 9", tipo);
        EXPECT_TRUE(vazio->BOF() && vazio->EOF_());
    }
}

TEST_F(Registros, AnAddedRowCountsAtOnceAndInItsOrder) {
    const auto outra = AbrirOutra();
    const auto trabalho = banco_->OpenRecordset(Apuracao, Dina);
    for (const char* linha : {"z", "a", "m"}) {
        Acrescentar(*trabalho, linha);
    }
    EXPECT_EQ(Lidas(*outra), "z\na\nm");
    outra->CreateQueryDef("", "DELETE * FROM tblApuraçãoOperaçõesPróprias")->Execute();
    Acrescentar(*trabalho, "b");
    EXPECT_EQ(Lidas(*banco_), "b") << "a dynaset holds nothing that others change";
}

TEST_F(Registros, OnlyDynasetsOfWholeTablesAddRows) {
    EXPECT_EQ(NumeroDoErro([&] { banco_->OpenRecordset(Apuracao, Avanco)->AddNew(); }), 3219);
    for (const char* consulta : {"SELECT IE FROM tblDRQ", "SELECT * FROM tblDRQ WHERE Tipo = 1",
                                 "SELECT * FROM tblDRQ, tblEstados"}) {
        EXPECT_EQ(NumeroDoErro([&] { banco_->OpenRecordset(consulta, Dina)->AddNew(); }), 3219);
    }
    const auto rs = banco_->OpenRecordset("SELECT * FROM tblDRQ", Dina);
    EXPECT_EQ(NumeroDoErro([&] { rs->Update(); }), 3020);
    EXPECT_EQ(NumeroDoErro([&] { rs->Fields("Tipo") = std::int32_t{1}; }), 3020);
    rs->AddNew();
    rs->MoveNext();  // gives the new row up
    EXPECT_EQ(NumeroDoErro([&] { rs->Update(); }), 3020);
    rs->AddNew();
    rs->Fields("NroDRQ") = std::int32_t{7};
    EXPECT_EQ(NumeroDoErro([&] { rs->Update(); }), 3219) << "a second row of one key";
    rs->Fields("NroDRQ") = std::int32_t{9};
    rs->Update();
    EXPECT_EQ(banco_.Linhas("SELECT NroDRQ FROM tblDRQ", 1).size(), 3U);
}

TEST_F(Registros, OutliveTheirDatabase) {
    auto banco = AbrirOutra();
    const auto avanco = banco->OpenRecordset("SELECT * FROM tblDRQ", Avanco);
    const auto dinamico = banco->OpenRecordset(Apuracao, Dina);
    const auto exclusao = banco->CreateQueryDef("", "DELETE * FROM tblContribuinte");
    banco.reset();
    EXPECT_EQ(LinhasDe(*avanco, "IE"), "a\nb");
    Acrescentar(*dinamico, "x");
    exclusao->Execute();
    EXPECT_EQ(Lidas(*banco_), "x");
    EXPECT_TRUE(banco_.Linhas("SELECT * FROM tblContribuinte", 1).empty());
}

TEST_F(Registros, PrivateTablesNeverWriteToTheFile) {
    Acrescentar(*banco_->OpenRecordset(Apuracao, Dina), "do banco");
    const auto privado = AbrirOutra(
        {.modo = ModoAbertura::SomenteLeitura, .tabelasDeTrabalho = TabelasDeTrabalho::Privadas});
    EXPECT_EQ(Lidas(*privado), "");
    const auto trabalho = privado->OpenRecordset(Apuracao, Dina);
    Acrescentar(*trabalho, "z");
    Acrescentar(*trabalho, "a");
    EXPECT_EQ(Lidas(*privado), "z\na");
    EXPECT_EQ(Lidas(*banco_), "do banco");
    EXPECT_EQ(Lidas(*AbrirOutra({.tabelasDeTrabalho = TabelasDeTrabalho::Privadas})), "");
}

TEST_F(Registros, AReadOnlyDatabaseRefusesEveryWriting) {
    const auto banco = AbrirOutra({.modo = ModoAbertura::SomenteLeitura});
    const auto exclusao = banco->CreateQueryDef("", "DELETE * FROM tblDRQ");
    EXPECT_EQ(NumeroDoErro([&] { exclusao->Execute(); }), 3027);
    const auto trabalho = banco->OpenRecordset(Apuracao, Dina);
    EXPECT_EQ(NumeroDoErro([&] { trabalho->AddNew(); }), 3027);
    EXPECT_EQ(NumeroDoErro([&] { banco->ExecutarScript("DELETE FROM tblDRQ"); }), 3027);
    EXPECT_EQ(banco_.Linhas("SELECT * FROM tblDRQ", 1).size(), 2U);
}

TEST_F(Registros, AScriptCountsWholeOrNotAtAll) {
    EXPECT_EQ(NumeroDoErro(
                  [&] { banco_.Executar("DELETE FROM tblDRQ; INSERT INTO tblNada VALUES (1)"); }),
              3075);
    EXPECT_EQ(banco_.Linhas("SELECT * FROM tblDRQ", 1).size(), 2U);
    banco_.Executar("CREATE TABLE nova (\"Ação\" TEXT); INSERT INTO nova VALUES ('sim')");
    EXPECT_EQ(banco_.Linhas("SELECT AÇÃO FROM Nova", 1).front(), "sim");
}

TEST_F(Registros, AHostsConnectionStaysAsItWas) {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(banco_.Arquivo().c_str(), &db), SQLITE_OK);
    {
        const auto banco = BancoSQLite::Adotar(db, TabelasDeTrabalho::Privadas);
        const auto aberto = banco->OpenRecordset("SELECT * FROM tblDRQ ORDER BY IE", Avanco);
        const auto segundo = BancoSQLite::Adotar(db, TabelasDeTrabalho::Privadas);
        Acrescentar(*segundo->OpenRecordset(Apuracao, Dina), "x");
        EXPECT_EQ(Lidas(*banco), "x");
        EXPECT_EQ(LinhasDe(*aberto, "IE"), "a\nb");
    }
    std::string temporarias;
    sqlite3_exec(
        db, "SELECT name FROM temp.sqlite_master",
        [](void* nomes, int, char** valores, char**) {
            *static_cast<std::string*>(nomes) += valores[0];
            return 0;
        },
        &temporarias, nullptr);
    EXPECT_EQ(temporarias, "");
    EXPECT_EQ(sqlite3_close(db), SQLITE_OK) << "no statement is left on it";
    EXPECT_EQ(NumeroDoErro([] { BancoSQLite::Adotar(nullptr); }), 91);
}

}  // namespace

}  // namespace tarvo
